#!/usr/bin/env python3
"""Writes a journey of keys as they fall: random.py SEED COUNT."""
import random
import sys

seed, count = int(sys.argv[1]), int(sys.argv[2])
chance = random.Random(seed)

STARTS = [
    [],
    ["type kirm", "press Enter End Enter", "command frmcrtb.mnuinsert Insert"],
    ["type tav", "press Enter End Enter", "command frmcrtb.mnujournal Alt+E j",
     "command frmjrnl.cmdadd Alt+N", "type 31032009"],
    ["command third.cmdledmas Alt+L"],
    ["command third.cmdgrpmas Alt+G"],
    ["command third.mnucreate Alt+C", "press Enter"],
    ["type pal", "press Enter End Enter", "command frmcrtb.cmdgrpmanf Alt+E m"],
    ["command third.mnudelete Alt+D", "type dsk", "press Enter"],
]
KEYS = (["Enter"] * 6 + ["Tab"] * 3 + ["BackTab", "Escape"] * 2 + ["Up", "Down"] * 2 +
        ["Left", "Right", "Home", "End", "Backspace", "Backspace", "Delete", "Space"])
TEXTS = ["office rent", "rent", "cash", "12", "0.5", "1000", "d", "c", "tav", "kir", "2009",
         "01042009", "x", "by", "to", "abc'd", "é🙂"]
COMMANDS = ["third.mnucreate Alt+C", "third.mnualter Alt+A", "third.mnudelete Alt+D",
            "third.mnumerge Alt+M", "third.cmdgrpmas Alt+G", "third.cmdledmas Alt+L",
            "third.mnurefresh Alt+R", "third.mnualpha Alt+P",
            "frmcrtb.mnuinsert Insert", "frmcrtb.mnualter F2", "frmcrtb.mnudelete Alt+E d",
            "frmcrtb.mnujournal Alt+E j", "frmcrtb.cmdgrpmanf Alt+E m", "frmcrtb.mnurefresh F5",
            "frmcrtb.mnugroup Ctrl+G", "frmcrtb.mnushsumm F6", "frmcrtb.mnuPreview Ctrl+P",
            "frmcrtb.mnusortopt[1] Alt+V s p", "frmcrtb.mnusortopt[0] Alt+V s e",
            "frmcrtb.mnuyrs[2] Alt+Y b", "frmcrtb.mnuyrs[0] Alt+Y c"]
FAILURES = ["insert into", "delete from", "select", "update"]
LOOK = ("keep third.active frmcrtb.active frmcrtb.txtpart frmcrtb.txtgroup frmcrtb.txtamount "
        "frmcrtb.txtdrcr frmcrtb.txttotdeb[0] third.txtsearch third.MaskEdBox1 third.MaskEdBox2")


def steps():
    yield "answers " + chance.choice(["Yes", "No"])
    yield "show third"
    yield from STARTS[seed % len(STARTS)]
    for number in range(count):
        kind = chance.random()
        if kind < 0.25:
            yield from ("type " + word for word in chance.choice(TEXTS).split())
        elif kind < 0.32:
            yield "try " + chance.choice(COMMANDS)
        elif kind < 0.34:
            yield "fail " + chance.choice(FAILURES)
        else:
            yield "press " + chance.choice(KEYS)
        if number % 3 == 0:
            yield LOOK
    yield "log"


sys.stdout.reconfigure(encoding="utf-8")
print("\n".join(steps()))
