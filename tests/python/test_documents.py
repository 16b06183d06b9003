"""The examples of the documents run as they stand."""

import os
import re

import pytest

SOURCE = os.environ["KESTRUM_SOURCE"]


def examples():
    for name in ("README.md", "docs/python.md"):
        with open(os.path.join(SOURCE, name), encoding="utf-8") as document:
            blocks = re.findall(r"```python\n(.*?)```", document.read(), re.S)
        assert blocks, name
        yield pytest.param("\n".join(block for block in blocks if "model.xlsx" not in block), id=name)


@pytest.mark.parametrize("code", examples())
def test_examples_run(code, capsys):
    pytest.importorskip("pandas")
    exec(compile(code, "document", "exec"), {})  # pylint: disable=exec-used
    assert capsys.readouterr().out.count("\n") >= 1
