#!/usr/bin/python3
"""The benchmark's translation as a data-minded forester would write it with
pandas: the tree file of ten comma-separated columns (plot, tree, tree count,
history, species, DBH and its increment in inches, total height in feet,
crown ratio and slope in percent) to the growth model's imperial tree list,
fixed columns, CR LF line ends.

Usage: translate.py INPUT.csv OUTPUT.tre
"""
import sys

import numpy as np
import pandas as pd

COLUMNS = ["plot", "tree", "count", "history", "species", "dbh", "dbhinc", "height", "crown", "slope"]


def main(source, target):
    trees = pd.read_csv(source, header=None, names=COLUMNS, dtype=str, keep_default_na=False)

    def number(column):
        return pd.to_numeric(trees[column], errors="coerce").fillna(0)

    def whole(values, width):
        # Rounded half away from zero.
        rounded = np.sign(values) * np.floor(np.abs(values) + 0.5)
        return rounded.astype(np.int64).astype(str).str.rjust(width)

    def measure(values, width):
        # A measure of exactly 0 is left blank.
        return whole(values, width).where(values != 0, " " * width)

    def text(column, width):
        return trees[column].str.strip().str.slice(0, width).str.rjust(width)

    crown = number("crown")
    # Crown ratio in percent to its code: 1 up to 10 %, ..., 9 above 80 %.
    crown_code = np.clip(np.ceil(crown / 10), 1, 9).astype(np.int64).astype(str).where(crown != 0, " ")
    records = (
        text("plot", 4)
        + text("tree", 3)
        + measure(number("count"), 6)
        + text("history", 1)
        + trees["species"].str.strip().str.upper().str.slice(0, 3).str.ljust(3)
        + measure(number("dbh") * 10, 4)        # tenths of an inch
        + measure(number("dbhinc") * 10, 3)
        + measure(number("height"), 3)          # feet
        + " " * 7                               # top kill height, height increment
        + crown_code
        + " " * 14                              # damages, tree value, prescription
        + whole(np.arctan(number("slope")), 2)  # the slope field as the model reads it
        + " " * 8                               # aspect, habitat, topography, site preparation
    )
    with open(target, "w", newline="") as out:
        out.write("\r\n".join(records) + "\r\n")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
