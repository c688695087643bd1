"""Finds the places of a C++ file that can be changed to see whether a test notices; scripts/mutants.py uses it."""

import re
import sys
from dataclasses import dataclass
from itertools import combinations

sys.path.append("/usr/lib/python3/dist-packages")  # Debian's bindings, for a Python that does not search there
from clang.cindex import CursorKind, Index, TypeKind  # noqa: E402  (found through the line above)

OTHER_OPERATOR = {
    **{"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&"},
    **{"+": "-", "-": "+", "+=": "-=", "-=": "+="},
}
COMPARISONS = {f"operator{sign}" for sign in ("<", "<=", ">", ">=", "==", "!=")}
OPERATIONS = {CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR}
LITERALS = {CursorKind.INTEGER_LITERAL, CursorKind.CXX_BOOL_LITERAL_EXPR, CursorKind.STRING_LITERAL}
LOOPS = {CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT, CursorKind.WHILE_STMT}
JUMPS = {CursorKind.RETURN_STMT, CursorKind.CONTINUE_STMT, CursorKind.BREAK_STMT}
ORDERLESS = {"min", "max"}  # functions whose result is the same for swapped arguments
HINTS = {"reserve"}  # calls that change nothing but the running time


@dataclass(frozen=True, order=True)
class Place:
    """One change: `new` replaces the bytes from `start` to `end` of the file `path`."""

    path: str
    start: int
    end: int
    kind: str  # swap, drop, negate, operator, constant, text
    new: bytes
    shown: str  # the change in a form for readers
    line: int


def type_name(cursor_type):
    """Returns the name of the type without reference, const and alias, which do not matter for a swap."""
    canonical = cursor_type.get_canonical()
    if canonical.kind in (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE):
        canonical = canonical.get_pointee().get_canonical()
    return canonical.spelling.removeprefix("const ")


def extent_of(cursor):
    """Returns (start, end) of the cursor's text in bytes."""
    return cursor.extent.start.offset, cursor.extent.end.offset


def other_constant(text):
    """Returns another value for a number or a truth value; None for other texts."""
    fixed = {"0": "1", "1": "0", "true": "false", "false": "true"}
    if text in fixed:
        return fixed[text]
    return f"({text} + 1)" if re.fullmatch(r"(0x[0-9A-Fa-f]+|\d+)[uUlL]*", text) else None


def condition_index(if_children):
    """Returns the index of the condition among the parts of an if. A declaration may come before it."""
    return 1 if if_children[0].kind == CursorKind.DECL_STMT else 0


class Finder:
    """Collects the places of one file."""

    def __init__(self, path, arguments):
        self.path = str(path)
        self.unit = Index.create().parse(self.path, arguments)
        with open(path, "rb") as file:
            self.bytes = file.read()
        self.places = set()

    def find(self):
        for cursor in self.unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == self.path:
                self.visit(cursor)
        return sorted(self.places)

    def text(self, start, end):
        return self.bytes[start:end].decode("utf-8", errors="replace")

    def add(self, kind, extent, new, shown):
        line = self.bytes.count(b"\n", 0, extent[0]) + 1
        self.places.add(Place(self.path, *extent, kind, new.encode(), " ".join(shown.split()), line))

    def add_at(self, kind, cursor, change):
        """Adds a place that replaces the cursor's text. `change` makes the new text from the old one."""
        old = self.text(*extent_of(cursor))
        self.add(kind, extent_of(cursor), change(old), f"{old} -> {change(old)}")

    def visit(self, cursor):
        if cursor.kind == CursorKind.STATIC_ASSERT or cursor.kind.is_attribute():
            return
        children = list(cursor.get_children())
        self.statements(cursor, children)
        self.condition(cursor, children)
        self.operator(cursor, children)
        self.literal(cursor)
        self.swaps(cursor, children)
        for child in children:
            # The text before the name of a declaration is its type, which is not changed.
            if not cursor.kind.is_declaration() or child.extent.start.offset >= cursor.location.offset:
                self.visit(child)

    def statements(self, cursor, children):
        """Adds the statements that can be dropped: expressions, and an if that contains only a jump."""
        if cursor.kind in LOOPS | {CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}:
            children = children[-1:]
        elif cursor.kind == CursorKind.IF_STMT:
            children = children[condition_index(children) + 1 :] if children[0].kind != CursorKind.VAR_DECL else []
        elif cursor.kind != CursorKind.COMPOUND_STMT:
            return
        for child in children:
            if child.spelling not in HINTS and (child.kind.is_expression() or self.is_guard(child)):
                # The semicolon after a dropped expression stays. After a dropped if with braces nothing would stay, so
                # "{}" replaces it.
                rest = "" if child.kind.is_expression() else "{}"
                self.add("drop", extent_of(child), rest, self.text(*extent_of(child)))

    @staticmethod
    def is_guard(cursor):
        """Whether the cursor is an if without else whose body is a single return, continue or break."""
        parts = list(cursor.get_children())
        if cursor.kind != CursorKind.IF_STMT or len(parts) != 2:
            return False
        body = list(parts[1].get_children()) if parts[1].kind == CursorKind.COMPOUND_STMT else [parts[1]]
        return len(body) == 1 and body[0].kind in JUMPS

    @staticmethod
    def condition_of(cursor, children):
        """Returns the condition that decides about a statement, if it is an expression; otherwise None."""
        if cursor.kind in (CursorKind.WHILE_STMT, CursorKind.CONDITIONAL_OPERATOR):
            return children[0] if children[0].kind.is_expression() else None
        if cursor.kind == CursorKind.DO_STMT:
            return children[1]
        if cursor.kind == CursorKind.IF_STMT:
            condition = children[condition_index(children)]
            return condition if condition.kind.is_expression() else None
        returns_truth = cursor.kind == CursorKind.RETURN_STMT and children
        return children[0] if returns_truth and type_name(children[0].type) == "bool" else None

    def condition(self, cursor, children):
        condition = self.condition_of(cursor, children)
        if condition and condition.kind != CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.add_at("negate", condition, lambda old: f"!({old})")

    def operator(self, cursor, children):
        if cursor.kind in OPERATIONS and len(children) == 2:
            extent = children[0].extent.end.offset, children[1].extent.start.offset
        elif cursor.kind == CursorKind.DECL_REF_EXPR and cursor.spelling in COMPARISONS:
            extent = extent_of(cursor)
        else:
            return
        sign = self.text(*extent).strip()
        if sign in OTHER_OPERATOR:
            line = self.text(self.bytes.rfind(b"\n", 0, extent[0]) + 1, self.bytes.find(b"\n", extent[0]))
            other = OTHER_OPERATOR[sign]
            self.add("operator", extent, f" {other} ", f"{sign} -> {other} in {line}")

    def literal(self, cursor):
        if cursor.kind not in LITERALS:
            return
        old = self.text(*extent_of(cursor))
        if cursor.kind != CursorKind.STRING_LITERAL and other_constant(old):
            self.add_at("constant", cursor, other_constant)
        elif old.startswith('"') and old.endswith('"'):
            self.add_at("text", cursor, lambda text: text[:-1] + 'x"')

    def swaps(self, cursor, children):
        """Adds swaps of two arguments, or of two fields of one row, that the compiler accepts in either order."""
        if cursor.kind == CursorKind.CALL_EXPR and cursor.spelling not in ORDERLESS:
            values = [(value, kind) for value, kind in self.arguments(cursor) if self.is_written(value, cursor)]
        elif cursor.kind == CursorKind.INIT_LIST_EXPR:
            fields = list(cursor.type.get_canonical().get_fields())
            values = [(value, type_name(field.type)) for value, field in zip(children, fields)]
        else:
            return
        if cursor.spelling.startswith("operator"):
            return
        for (first, first_type), (second, second_type) in combinations(values, 2):
            if first_type == second_type:
                self.add_swap(self.value_extent(first), self.value_extent(second))

    @staticmethod
    def arguments(call):
        """Returns [(argument, type of its parameter)].

        If the function is not known, the type is that of the argument itself.
        """
        given = list(call.get_arguments())
        declared = list(call.referenced.get_arguments()) if call.referenced else []
        typed = declared if len(declared) == len(given) else given
        return [(value, type_name(place.type)) for value, place in zip(given, typed) if value]

    @staticmethod
    def is_written(value, call):
        """Whether the argument is written in the call. A default argument is not."""
        start, end = extent_of(value)
        return call.extent.start.offset <= start < end <= call.extent.end.offset

    def value_extent(self, value):
        """Returns (start, end) of a value. For a named field this is only the text after the equals sign."""
        start, end = extent_of(value)
        named = re.match(r"\.\w+ = ", self.text(start, end))
        return (start + named.end() if named else start), end

    def add_swap(self, first, second):
        first_text, second_text = self.text(*first), self.text(*second)
        between = self.text(first[1], second[0])
        if first_text != second_text and first[1] <= second[0]:
            new = second_text + between + first_text
            self.add("swap", (first[0], second[1]), new, f"{first_text} <-> {second_text}")


def find_places(path, arguments):
    """Returns all places of a file that is compiled with these arguments of clang, sorted."""
    return Finder(path, arguments).find()
