"""The scripts of examples/python run and write what they say."""

import os
import pathlib
import runpy
import sys

import pytest

pytest.importorskip("pandas")
pytest.importorskip("matplotlib")
pytest.importorskip("openpyxl")

GALLERY = pathlib.Path(os.environ["KESTRUM_SOURCE"]) / "examples" / "python"
WRITES = {"floor": ["floor.csv"], "frame": ["frame.xlsx", "frame.png"], "sensitivity": ["sensitivity.png"],
          "utilisation": ["utilisation.png"]}


def test_each_script_is_listed():
    assert sorted(path.stem for path in GALLERY.glob("*.py")) == sorted(WRITES)


@pytest.mark.parametrize("name", WRITES)
def test_scripts_run(name, tmp_path, monkeypatch, capsys):
    monkeypatch.setattr(sys, "argv", [name, str(tmp_path)])
    runpy.run_path(str(GALLERY / f"{name}.py"), run_name="__main__")
    assert capsys.readouterr().out.count("\n") >= 4
    for written in WRITES[name]:
        assert (tmp_path / written).stat().st_size > 500
    for picture in tmp_path.glob("*.png"):
        assert picture.read_bytes().startswith(b"\x89PNG")
