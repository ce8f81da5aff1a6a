"""Entities that programs make in drawings of other versions, and what other readers find of those that are saved."""

import subprocess
import unittest

from lisphost import LispHostTest

OLD = """0
SECTION
2
HEADER
9
$ACADVER
1
AC1009
0
ENDSEC
0
SECTION
2
BLOCKS
0
BLOCK
8
0
2
$MODEL_SPACE
70
0
10
0
20
0
30
0
0
ENDBLK
8
0
0
ENDSEC
0
SECTION
2
ENTITIES
0
ENDSEC
0
EOF
"""

# Debian's Python, which may not be the one that runs this, has the independent reader.
READER = "/usr/bin/python3"


def read_by_others(path, expression):
    """What another reader of DXF finds: the value of a Python expression over `drawing`, printed."""
    script = (f"import ezdxf; drawing = ezdxf.readfile({str(path)!r}); audit = drawing.audit(); "
              f"print([error.message for error in audit.errors + audit.fixes], {expression})")
    return subprocess.run([READER, "-c", script], capture_output=True, text=True, check=True).stdout.strip()


def marked(kind, marker, groups):
    return f'(entmake \'((0 . "{kind}") (100 . "AcDbEntity") (100 . "{marker}") {groups}))'


class Entities(LispHostTest):
    def test_an_old_drawing_gets_no_newer_types(self):
        self.write("old.dxf", OLD)
        outcome = self.lisphost("eval", "--drawing", "old.dxf",
                                marked("LWPOLYLINE", "AcDbPolyline", "(90 . 2) (10 0 0) (10 1 1)"),
                                marked("MTEXT", "AcDbMText", '(40 . 1.0) (10 0 0) (1 . "x")'),
                                marked("ELLIPSE", "AcDbEllipse", "(10 0 0) (11 4 0) (40 . 0.5)"),
                                marked("XLINE", "AcDbXline", "(10 0 0) (11 1 0)"),
                                marked("SPLINE", "AcDbSpline", "(10 0 0)"), "(entnext)",
                                marked("CIRCLE", "AcDbCircle", "(10 0 0) (40 . 1)") + "(cdr (assoc 0 (entget (entlast))))")
        self.assert_gives(outcome, 'nil\n' * 6 + '((0 . "CIRCLE") (100 . "AcDbEntity") (100 . "AcDbCircle") (10 0 0) (40 . 1))\n'
                                   '"CIRCLE"\n')

    def test_the_spaces_of_an_old_drawing_are_no_blocks_to_insert(self):
        self.write("old.dxf", OLD)
        insert = "(entmake '((0 . \"INSERT\") (2 . \"$Model_Space\") (10 0 0)))"
        self.assert_gives(self.lisphost("eval", "--drawing", "old.dxf", insert, '(tblnext "BLOCK" T)'), "nil\nnil\n")

    def test_attachments_are_sound(self):
        self.lisphost("eval", "--save", "attached.dxf",
                      "(setq line (entmakex '((0 . \"LINE\") (10 0 0) (11 1 1))))",
                      "(setq one (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\"))))",
                      "(setq two (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\"))))",
                      "(entmod (append (entget line) (list '(102 . \"{ACAD_XDICTIONARY\") (cons 360 one) '(102 . \"}\"))))",
                      "(entmake (list '(0 . \"POINT\") '(100 . \"AcDbEntity\") '(100 . \"AcDbPoint\") '(10 0 0)"
                      " '(102 . \"{ACAD_REACTORS\") (cons 330 line) '(102 . \"}\")"
                      " '(102 . \"{ACAD_XDICTIONARY\") (cons 360 two) '(102 . \"}\")))")
        found = ("[(e.dxftype(), e.extension_dict.dictionary.dxf.owner == e.dxf.handle, bool(e.reactors)) "
                 "for e in drawing.modelspace()]")
        self.assertEqual(read_by_others(self.folder / "attached.dxf", found),
                         "[] [('LINE', True, False), ('POINT', True, True)]")

    def test_entities_of_other_layouts_are_sound(self):
        self.lisphost("eval", "--save", "layouts.dxf", '(setvar "CMDECHO" 0)', '(command "_.layout" "_new" "S2")',
                      "(entmake '((0 . \"POINT\") (67 . 1) (410 . \"S2\") (10 0 0)))",
                      "(entmake '((0 . \"POINT\") (410 . \"Layout1\") (10 0 0)))")
        self.assertEqual(read_by_others(self.folder / "layouts.dxf", "[(l.name, len(l)) for l in drawing.layouts]"),
                         "[] [('Model', 0), ('Layout1', 1), ('S2', 1)]")


if __name__ == "__main__":
    unittest.main()
