#!/usr/bin/env python3
"""Makes the seed corpora of fuzz/corpus/<target>/ from inputs of the tests
and slices of the real survey extract (../shared/data/lolo-2022/tree.csv).

The seeds are small files; the fuzzers take their choices (mode, widths,
units, ...) from the last bytes of an input, so the text seeds work as they
are. Run from the repository root: tools/make-fuzz-seeds.py [tree.csv]."""
import hashlib
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CORPUS = os.path.join(ROOT, "fuzz", "corpus")
EXTRACT = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "..", "shared", "data", "lolo-2022", "tree.csv")


def put(target, data):
    if isinstance(data, str):
        data = data.encode("latin-1")
    folder = os.path.join(CORPUS, target)
    os.makedirs(folder, exist_ok=True)
    name = hashlib.sha1(data).hexdigest()[:16]
    with open(os.path.join(folder, name), "wb") as out:
        out.write(data)


with open(EXTRACT, "rb") as f:
    extract = f.read().decode("latin-1").splitlines()


def lines(first, count, end="\n"):
    return end.join(extract[first:first + count]) + end


# Slices of the extract, about 4 KB each (the fuzzers' input size), from
# several places of the file; 300 lines in all.
slices = [(0, 60), (60, 60), (300, 60), (500, 60), (len(extract) - 60, 60)]
for first, count in slices:
    put("unattended_run", lines(first, count))
    put("input_lines", lines(first, count))
put("unattended_run", lines(0, 30, "\r\n"))
put("unattended_run", lines(0, 1))
put("unattended_run", lines(0, 12, "\r").replace(",", ",,", 3))
put("input_lines", lines(0, 10, "\r\n"))
put("input_lines", lines(0, 10, "\r"))
put("input_lines", "a\r\n\r\nb\rc\n\nd")

for first in (0, 1, 120, 400):
    put("pull_columns", lines(first, 8))
put("pull_columns", '"1","two, three",4\n\'a\',\'b\'\'c\',,\n')
put("pull_columns", "  1  2   3\n12345678901234567890\n\tx\ty;z\n")
put("pull_columns", ",,,\n" + ",".join(str(n) for n in range(40)) + "\n")

settings = "[Common]\r\nDataDir=/home/u/Documents/Orvanta/Data/\r\nWorkDir=/home/u/Documents/Orvanta/Work/\r\n" \
           "[Brenwick]\r\nHelpDir=/opt/help\r\n[Corvalin]\r\nConfigured=YES\r\n"
put("profile_file", settings)
put("profile_file", "; a comment\n[ Common ]\nDataDir = x \n\n[common]\nWorkDir=y\n")
for template in ("data/Work/lolo.cnv", "fuzz/templates/unattended.cnv"):
    with open(os.path.join(ROOT, template), "rb") as f:
        text = f.read()
    put("template_file", text)
    put("profile_file", text[:1500])
put("template_file", "[COLUMN_DELIMITERS]\r\nFixedWidth=YES\r\nNumMarkers=2\r\nFixedMarker1=4\r\nFixedMarker2=9\r\n"
                     "TextQualifier=\"\r\n[TEMPLATE_COMMANDS]\r\nNumberOfCommands=2\r\nCommandType1=EXCLUDE_RANGE\r\n"
                     "ColumnNumber1=0\r\nStartLine1=2\r\nEndLine1=3.5\r\nCommandType2=REPLACE_ALL\r\n"
                     "FindString2=a=b\r\nReplacementString2= c \r\nColumnNumber2=+1\r\nStartLine2=0\r\nEndLine2=0\r\n")

cells = ["", "1", "3 ", "9", "10", "12", "8", "999", "130", "25.5", "1.", ".", "007", "1.2.3", "-4",
         "01 3", " 1 3", "12 9", "55 7", "5507", "5599", "0103", "99 1", "  ", "5X", "A1", "8E888", "45", "81"]
for cell in cells:
    put("cell_rules", cell)
    put("field_format", cell + "\x07\x03\x01\x00\x02\x05\x00\x00\x00\x00\x00\x00\x00\x00")

stand_lines = [
    "A st001 trees\\st001.tre WithPointData bc @",
    "A st002 &  NoPointData bc @",
    "A st1 &  WithPointData ak ni kt @",
    "A st1 /data/trees/st1.tre WithPointData @",
    "B st001 1995 50.5 119.5 106  @ 1950 180 20 45 @ 10 @ 5 0 1 100 0 10 0 10 10 @ @ fd 22",
    "B st001 @abc 1995 @",
    "C st001 thin1 thin2 @",
    "D st001 keys\\thin.key @",
    "A \" Two sides \" @ x @ @",
    "A \"ab cd\"ef gh",
    "E st1 @",
]
for line in stand_lines:
    put("record_token", line + "\x03\x00")
    put("edit_stand_record", line + "\x01")
    put("edit_stand_record", line + "\x09")
