"""A tree's rows, walked with the keyboard and read as a screen reader reads them."""

from session import has_state, session, wait_for
from gi.repository import Atspi


class Rows:
    """All rows that are open, from top to bottom and counted from 0. The tree must have the keyboard; the walk begins
    at the first row."""

    def __init__(self, tree):
        self.tree = tree
        session.key("Home")
        self.wait_until_current(0)

    def items(self):
        self.tree.clear_cache()
        children = [self.tree.get_child_at_index(i) for i in range(self.tree.get_child_count())]
        return [child for child in children if child and child.get_role() == Atspi.Role.TABLE_CELL]

    def names(self):
        return [item.get_name() for item in self.items()]

    def selected(self):
        """Names of the selected rows."""
        return [item.get_name() for item in self.items() if has_state(item, Atspi.StateType.SELECTED)]

    def wait_until_current(self, place):
        wait_for("row %d to be the current one" % place,
                 lambda: has_state(self.items()[place], Atspi.StateType.FOCUSED))
        self.at = place

    def walk(self, name, start=0, modifier=""):
        """Goes to the first row of that name from `start` on; gives its place."""
        to = self.names().index(name, start)
        while self.at != to:
            step = 1 if to > self.at else -1
            session.tap(modifier + ("Down" if step > 0 else "Up"))
            self.wait_until_current(self.at + step)
        return to

    def expand(self, name, start=0):
        place = self.walk(name, start)
        before = len(self.items())
        session.key("Right")
        wait_for("the rows of " + name, lambda: len(self.items()) > before)
        return place
