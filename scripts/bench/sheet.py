# SPDX-License-Identifier: BSD-3-Clause
"""What a measurement hands over: a table whose rows have cells, ratios and goals."""
from dataclasses import dataclass, field

WORSE = 1.10  # how much above the kept ratio counts as worse


@dataclass(frozen=True)
class Ratio:
    """A cell that is compared with the kept one; `against` is what it is a ratio to."""

    against: str
    value: float


@dataclass
class Row:
    name: str
    cells: list  # of texts and ratios
    goals: list = field(default_factory=list)  # of pairs: the text, and whether it is met
    key: str = ""  # what its ratios are kept under; empty: its name

    def __post_init__(self):
        self.key = self.key or self.name

    def ratios(self):
        return {cell.against: cell.value for cell in self.cells if isinstance(cell, Ratio)}


@dataclass
class Sheet:
    columns: list  # the headings of the cells
    rows: list
    first: str = ""  # the heading of the rows' names
    caption: str = ""

    def write(self, kept, out):
        """Prints the table and returns what became worse, a text each. `kept` maps rows to their kept ratios."""
        worse = []
        if self.caption:
            print(f"{self.caption}\n", file=out)
        if not self.rows:
            return worse
        print(f"| {self.first} | " + " | ".join([*self.columns, "goal", "met"]) + " |", file=out)
        print("|---|" + "---:|" * len(self.columns) + "---|---|", file=out)
        for row in self.rows:
            known = kept.get(row.key, {})
            cells = []
            for cell in row.cells:
                before = known.get(cell.against) if isinstance(cell, Ratio) else None
                is_worse = before is not None and cell.value > before * WORSE
                cells.append(ratio_text(cell, before if is_worse else None) if isinstance(cell, Ratio) else cell)
                if is_worse:
                    worse.append(f"{row.key}: {cell.value:.3g} of {cell.against}, kept {before:.3g}")
            goal = "; ".join(text for text, _ in row.goals) or "none"
            met = "" if not row.goals else "yes" if all(met for _, met in row.goals) else "**no**"
            print(f"| {row.name} | " + " | ".join([*cells, goal, met]) + " |", file=out)
        print(file=out)
        return worse


def ratio_text(ratio, before=None):
    text = rounded(ratio.value)
    return text if before is None else f"**{text}, worse than {rounded(before)}**"


def digits_of(value):
    return 3 if value < 0.1 else 2 if value < 10 else 1 if value < 100 else 0


def rounded(value):
    return f"{value:,.{digits_of(value)}f}"


def keeps_to(value, at_most):
    """Whether a ratio meets a goal as it is printed."""
    return round(value, digits_of(value)) <= at_most
