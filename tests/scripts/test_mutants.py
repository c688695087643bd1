"""Tests of scripts/mutation_places.py and of the draw of scripts/mutants.py."""

import sys
import tempfile
import unittest
from pathlib import Path

from check_case import SCRIPTS

sys.path.insert(0, str(SCRIPTS))
try:
    import mutants
    from mutation_places import Place, find_places
except ImportError:
    mutants = None

needs_clang = unittest.skipIf(mutants is None, "needs the Debian package python3-clang-14")
ARGUMENTS = ["-std=c++20", "-xc++"]


@needs_clang
class Places(unittest.TestCase):
    def changed(self, text):
        """{kind: [the text after each change of that kind]}"""
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "a.cpp"
            file.write_text(text, encoding="utf-8")
            found = {}
            for place in find_places(file, ARGUMENTS):
                after = text.encode()[: place.start] + place.new + text.encode()[place.end :]
                found.setdefault(place.kind, []).append(after.decode())
            return found

    def assert_changes(self, kind, before, *after):
        """The change of this kind turns the function `before` into each of `after`, and into nothing else."""
        self.assertEqual(self.changed(before).get(kind, []), list(after))

    def test_arguments_of_the_same_parameter_type_are_swapped(self):
        declared = "void F(int, const char*, int);\n"
        self.assert_changes("swap", declared + 'void G() { F(1, "", 2); }', declared + 'void G() { F(2, "", 1); }')

    def test_arguments_that_are_converted_to_the_same_type_are_swapped(self):
        declared = "struct A { A(const char*); A(int); };\nvoid F(const A&, const A&);\n"
        self.assert_changes("swap", declared + 'void G() { F("", 7); }', declared + 'void G() { F(7, ""); }')

    def test_equal_arguments_and_arguments_by_default_are_no_places(self):
        self.assert_changes("swap", "void F(int, int, int = 3);\nvoid G(int a) { F(a, a); }")

    def test_order_that_does_not_matter_is_no_place(self):
        self.assert_changes("swap", "int min(int, int);\nint G(int a, int b) { return min(a, b); }")

    def test_fields_of_a_row_are_swapped(self):
        declared = "struct R { const char* a; int b; const char* c; };\n"
        self.assert_changes("swap", declared + 'R r{"x", 1, "y"};', declared + 'R r{"y", 1, "x"};')

    def test_named_fields_keep_their_names(self):
        declared = "struct R { int a; int b; };\n"
        self.assert_changes("swap", declared + "R r{.a = 1, .b = 2};", declared + "R r{.a = 2, .b = 1};")

    def test_elements_of_an_array_are_no_fields(self):
        self.assert_changes("swap", "int list[] = {1, 2, 3};")

    def test_expression_statement_is_dropped(self):
        self.assert_changes("drop", "void F(int& a) { int b; a = 5; }", "void F(int& a) { int b; ; }")

    def test_reserve_is_no_statement_to_drop(self):
        self.assert_changes("drop", "struct A { void reserve(int); };\nvoid F(A& a) { a.reserve(5); }")

    def test_statement_of_a_branch_is_dropped(self):
        self.assert_changes(
            "drop",
            "void F(bool c, int& a) { if (c) a = 1; else a = 2; }",
            "void F(bool c, int& a) { if (c) ; else a = 2; }",
            "void F(bool c, int& a) { if (c) a = 1; else ; }",
        )

    def test_guard_of_a_jump_is_dropped_with_its_jump(self):
        self.assert_changes(
            "drop",
            "void F(bool c) { if (c) return; while (c) { if (c) { break; } } }",
            "void F(bool c) { {}; while (c) { if (c) { break; } } }",
            "void F(bool c) { if (c) return; while (c) { {} } }",
        )

    def test_conditions_and_returned_truth_values_are_negated(self):
        self.assert_changes(
            "negate",
            "bool F(bool c, bool d, bool e) { if (c) d = d ? c : e; while (d) {} return e; }",
            "bool F(bool c, bool d, bool e) { if (!(c)) d = d ? c : e; while (d) {} return e; }",
            "bool F(bool c, bool d, bool e) { if (c) d = !(d) ? c : e; while (d) {} return e; }",
            "bool F(bool c, bool d, bool e) { if (c) d = d ? c : e; while (!(d)) {} return e; }",
            "bool F(bool c, bool d, bool e) { if (c) d = d ? c : e; while (d) {} return !(e); }",
        )

    def test_condition_after_a_declaration_is_negated(self):
        self.assert_changes(
            "negate", "void F() { if (int a = 5; a > 3) {} }", "void F() { if (int a = 5; !(a > 3)) {} }"
        )

    def test_operators_are_replaced_and_angle_brackets_of_templates_are_not(self):
        declared = "template <class T> T F(T);\n"
        before = declared + "int G(int a) { return F<int>(a) + a; }"
        self.assert_changes("operator", before, before.replace("+", "-"))

    def test_comparison_of_a_class_is_replaced(self):
        declared = "struct A { bool operator==(const A&) const; };\n"
        before = declared + "int G(A a) { return a != a; }"
        self.assert_changes("operator", before, declared + "int G(A a) { return a  ==  a; }")

    def test_constants_are_changed_and_sizes_of_types_are_not(self):
        declared = "template <unsigned n> struct A { int v; };\n"
        before = declared + "A<5> a{8}; bool b = true;"
        self.assert_changes(
            "constant", before, declared + "A<5> a{(8 + 1)}; bool b = true;", declared + "A<5> a{8}; bool b = false;"
        )

    def test_texts_are_changed_and_those_of_static_asserts_are_not(self):
        asserted = 'static_assert(1 + 1 == 2, "sums");\n'
        self.assert_changes("text", asserted + 'const char* a = "t";', asserted + 'const char* a = "tx";')
        self.assertEqual(list(self.changed(asserted)), [])


@needs_clang
class Draw(unittest.TestCase):
    def setUp(self):
        kinds = ["swap", "drop", "text"] * 100
        self.places = [Place(f"/a/{at}.cpp", at, at + 1, kind, b"", "", 1) for at, kind in enumerate(kinds)]

    def draw(self, kind, seed):
        return mutants.draw(self.places, "/a", kind, seed)

    def test_same_seed_draws_the_same_and_another_draws_otherwise(self):
        first = self.draw("random", 1)
        self.assertNotEqual(first, self.draw("random", 2))
        self.places.reverse()
        self.assertEqual(first, self.draw("random", 1))

    def test_place_that_is_gone_leaves_the_order_of_the_others(self):
        first = self.draw("random", 1)
        self.places.remove(first[7])
        self.assertEqual(self.draw("random", 1), first[:7] + first[8:])

    def test_texts_are_drawn_seldom_and_never_among_swaps(self):
        kinds = [place.kind for place in self.draw("random", 1)[:100]]
        self.assertTrue(0 < kinds.count("text") < 25)
        self.assertTrue(25 < kinds.count("swap"))
        self.assertEqual({place.kind for place in self.draw("swaps", 1)}, {"swap", "drop"})

    def test_tests_of_the_own_room_come_first_and_then_those_above(self):
        with tempfile.TemporaryDirectory() as folder:
            for room in ("util", "pipeline", "wizard", "mkisofs"):
                (Path(folder) / "tests" / room).mkdir(parents=True)
            programs = lambda file: mutants.test_programs(Path(folder), f"{folder}/{file}")  # noqa: E731
            self.assertEqual(programs("pipeline/a.cpp"), ["pipeline_test", "wizard_test"])
            self.assertEqual(programs("tools/mkisofs/a.cpp"), ["mkisofs_test"])


if __name__ == "__main__":
    unittest.main()
