"""Builds the extension module by the CMake project two folders up: `pip install .` here."""

import pathlib
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
VERSION = re.search(r'kVersion = "([0-9.]+)"', (ROOT / "src/core/version.h").read_text(encoding="utf-8")).group(1)


class CMakeBuild(build_ext):
    def build_extension(self, ext):
        target = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve()
        build = pathlib.Path(self.build_temp).resolve() / "cmake"
        switches = [f"-DKESTRUM_{part}=OFF" for part in ("DESKTOP", "TESTS", "BENCH")]
        subprocess.run(["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                        "-DKESTRUM_PYTHON=ON", f"-DPython_EXECUTABLE={sys.executable}", *switches], check=True)
        subprocess.run(["cmake", "--build", build, "--target", "kestrum_python"], check=True)
        module = next((build / "python/kestrum").glob("_kestrum*.so"))
        target.parent.mkdir(parents=True, exist_ok=True)
        self.copy_file(str(module), str(target))


setup(version=VERSION, ext_modules=[Extension("kestrum._kestrum", sources=[])], cmdclass={"build_ext": CMakeBuild})
