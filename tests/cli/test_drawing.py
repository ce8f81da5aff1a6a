"""Drawings on the command line: opened, changed, written, and what happens to those that cannot be."""

import os
import subprocess
import unittest

from lisphost import LispHostTest, native, quoted

R12 = """  0
SECTION
  2
ENTITIES
  0
LINE
  8
0
 10
1.
 20
2.
 11
3.
 21
4.
  0
ENDSEC
  0
EOF
"""

# Debian's Python, which may not be the one that runs this, has the independent reader.
READER = "/usr/bin/python3"


def read_by_others(path, expression):
    """What another reader of DXF finds: the value of a Python expression over `drawing`, printed."""
    script = f"import ezdxf; drawing = ezdxf.readfile({str(path)!r}); print({expression})"
    return subprocess.run([READER, "-c", script], capture_output=True, text=True, check=True).stdout.strip()


class Drawing(LispHostTest):
    def test_a_new_drawing_is_written_and_sound(self):
        self.assert_gives(self.lisphost("eval", "--save", "new.dxf", "(entmake '((0 . \"CIRCLE\") (10 1 2) (40 . 3)))"),
                          '((0 . "CIRCLE") (10 1 2) (40 . 3))\n')
        path = self.folder / "new.dxf"
        self.assertEqual(read_by_others(path, "drawing.dxfversion, len(drawing.audit().errors)"), "AC1032 0")
        self.assertEqual(read_by_others(path, "[(c.dxf.center.x, c.dxf.radius) for c in drawing.modelspace()]"),
                         "[(1.0, 3.0)]")

    def test_what_is_not_changed_is_written_byte_for_byte(self):
        self.write("old.dxf", R12)
        outcome = self.lisphost("eval", "--drawing", "old.dxf", "--save", "copy.dxf", "(cdr (assoc 11 (entget (entnext))))")
        self.assert_gives(outcome, "(3.0 4.0 0.0)\n")
        self.assertEqual((self.folder / "copy.dxf").read_text(), R12)

    def test_only_the_changed_group_is_written_anew(self):
        self.write("old.dxf", R12)
        change = "(entmod (list (cons -1 (entnext)) '(10 5 2 0)))"
        self.assertEqual(self.lisphost("eval", "--drawing", "old.dxf", "--save", "old.dxf", change).status, 0)
        self.assertEqual((self.folder / "old.dxf").read_text(), R12.replace(" 10\n1.\n", " 10\n5.0\n"))

    def test_nothing_is_left_beside_the_drawing(self):
        self.write("old.dxf", R12)
        self.lisphost("eval", "--drawing", "old.dxf", "--save", "old.dxf", "(entdel (entnext))")
        self.lisphost("eval", "--drawing", "old.dxf", "--save", "new.dxf", "1")
        self.assertEqual(sorted(path.name for path in self.folder.glob("*.dxf*")), ["new.dxf", "old.dxf"])

    def test_what_is_replaced_is_kept_when_a_program_asks_for_it(self):
        self.write("old.dxf", R12)
        self.lisphost("eval", "--drawing", "old.dxf", "--save", "old.dxf", '(setvar "ISAVEBAK" 1)', "(entdel (entnext))")
        self.assertEqual((self.folder / "old.bak").read_text(), R12)
        changed = (self.folder / "old.dxf").read_text()
        self.assertNotIn("LINE", changed)
        self.lisphost("eval", "--drawing", "old.dxf", '(setvar "ISAVEBAK" 1)', '(setvar "CMDECHO" 0)',
                      "(entmake '((0 . \"POINT\") (10 1 2)))", '(command "_.qsave")')
        self.assertEqual((self.folder / "old.bak").read_text(), changed)
        self.assertIn("POINT", (self.folder / "old.dxf").read_text())

    def test_a_program_that_fails_saves_nothing(self):
        self.write("old.dxf", R12)
        outcome = self.lisphost("eval", "--drawing", "old.dxf", "--save", "old.dxf", "(entdel (entnext))", "(car 5)")
        self.assertEqual(outcome.status, 1)
        self.assertEqual((self.folder / "old.dxf").read_text(), R12)

    def test_a_drawing_that_is_not_there(self):
        self.assert_fails(self.lisphost("eval", "--drawing", "none.dxf", "1"), 3, "lisphost: none.dxf: ")

    def test_a_place_that_cannot_be_written(self):
        self.assert_fails(self.lisphost("eval", "--save", "none/new.dxf", "(princ)"), 3, "lisphost: ")
        os.mkdir(self.folder / "folder.dxf")
        self.assert_fails(self.lisphost("eval", "--save", "folder.dxf", "(princ)"), 3, "lisphost: ")

    def test_what_is_not_understood_is_told_once(self):
        self.write("odd.dxf", R12.replace(" 20\n2.\n", "no code\n2.\n", 1))
        outcome = self.lisphost("eval", "--drawing", "odd.dxf", "--save", "copy.dxf", "1")
        self.assertEqual((outcome.status, outcome.output), (0, "1\n"))
        self.assertRegex(outcome.errors, r"^lisphost: odd.dxf: not understood and kept as it is in \d+ places, first: .+\n$")
        self.assertEqual((self.folder / "copy.dxf").read_text(), (self.folder / "odd.dxf").read_text())
        opened = self.lisphost("eval", '(progn (setvar "CMDECHO" 0) (command "_.open" "odd.dxf") (princ))')
        self.assertRegex(opened.output, r"odd.dxf: not understood and kept as it is in \d+ places, first: .+\n")

    def test_hyperlinks_are_those_of_other_programs(self):
        self.lisphost("eval", "--save", "linked.dxf", "(entmake '((0 . \"POINT\") (10 1 2)))",
                      '(seturl (entlast) "https://example.org/ä")')
        path = self.folder / "linked.dxf"
        self.assertEqual(read_by_others(path, "drawing.modelspace()[0].get_hyperlink()[0]"), "https://example.org/ä")
        script = (f"import ezdxf; drawing = ezdxf.new('R2010'); "
                  f"drawing.modelspace().add_circle((0, 0), 1).set_hyperlink('https://other.example'); "
                  f"drawing.saveas({str(path)!r})")
        subprocess.run([READER, "-c", script], check=True)
        self.assert_gives(self.lisphost("eval", "--drawing", "linked.dxf", "(geturl (entnext))"), '"https://other.example"\n')

    def test_attribute_definitions_of_several_lines_are_told_from_others(self):
        path = self.folder / "attributes.dxf"
        script = (f"import ezdxf; drawing = ezdxf.new('R2018'); model = drawing.modelspace(); model.add_attdef('ONE', (0, 0)); "
                  f"model.add_attdef('MORE', (0, 0)).set_mtext(ezdxf.new('R2018').modelspace().add_mtext('a')); "
                  f"drawing.saveas({str(path)!r})")
        subprocess.run([READER, "-c", script], check=True)
        self.assert_gives(self.lisphost("eval", "--drawing", path, "(_vorns_util (entnext))", "(_vorns_util (entlast))",
                                        "(_vorns_util (entlast) 0)", "(_vorns_util (entlast) 0.5)"), "nil\nT\nnil\nT\n")

    def test_what_is_beside_the_drawing_is_found(self):
        self.write("plans/old.dxf", R12)
        self.write("plans/notes.txt", "")
        outcome = self.lisphost("eval", "--drawing", "plans/old.dxf", '(findfile "notes.txt")', '(getvar "DWGNAME")',
                                '(getvar "DWGPREFIX")')
        self.assert_gives(outcome, f'{quoted(native(self.folder / "plans/notes.txt"))}\n"old.dxf"\n'
                                   f'{quoted(native(f"{self.folder}/plans/"))}\n')


if __name__ == "__main__":
    unittest.main()
