"""Hears what a screen reader hears of the programs on the accessibility bus, a line of JSON each.

A line of the input is a question, answered by a line with "answer": "windows" tells the role and the name of
each window, "table <name>" the headings, the size and the first cells of the table with that name, "text
<role>" the text of the first object of that role.
"""

import json
import sys

import pyatspi
from gi.repository import GLib


def tell(**what):
    print(json.dumps(what), flush=True)


def text_of(source):
    try:
        return source.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def hear(kind):
    def heard(event):
        if kind != "name" and not event.detail1:
            return
        try:
            tell(heard=kind, role=event.source.getRoleName(), name=event.source.name, text=text_of(event.source))
        except Exception:  # The object may be gone by now: nothing was heard of it.
            pass

    return heard


def below(top):
    yield top
    if top.getRole() == pyatspi.ROLE_TABLE:
        return
    for child in top:
        if child is not None:
            yield from below(child)


def programs():
    return [program for program in pyatspi.Registry.getDesktop(0) if program is not None]


def windows():
    return [f"{window.getRoleName()}|{window.name}" for program in programs() for window in program]


def found(condition):
    for program in programs():
        for one in below(program):
            if condition(one):
                return one
    return None


def table(name):
    one = found(lambda each: each.getRole() == pyatspi.ROLE_TABLE and each.name == name)
    if one is None:
        return None
    cells = one.queryTable()
    columns = range(cells.nColumns)
    return {
        "headings": [cells.getColumnDescription(column) for column in columns],
        "rows": cells.nRows,
        "children": one.childCount,
        "first": [cells.getAccessibleAt(0, column).name for column in columns],
    }


def text(role):
    one = found(lambda each: each.getRoleName() == role)
    return None if one is None else [one.name, one.description]


def answer(_source, _condition):
    question = sys.stdin.readline().rstrip("\n")
    if not question:
        pyatspi.Registry.stop()
        return False
    word, _, rest = question.partition(" ")
    try:
        tell(answer=windows() if word == "windows" else {"table": table, "text": text}[word](rest))
    except Exception as failure:
        tell(answer=None, failure=str(failure))
    return True


for kind, event in {
    "focus": "object:state-changed:focused",
    "name": "object:property-change:accessible-name",
    "shown": "object:state-changed:showing",
}.items():
    pyatspi.Registry.registerEventListener(hear(kind), event)
GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, answer)
tell(answer="ready")
pyatspi.Registry.start()
