"""Hyperlinks on every kind of entity: written here and read by another program, and the other way round."""

import subprocess
import unittest

from lisphost import LispHostTest

# Debian's Python, which may not be the one that runs this, has the other reader and writer.
OTHERS = "/usr/bin/python3"

# One entity of each kind, in the model and on a layout.
MAKE = """
import sys, ezdxf
from ezdxf.math import Matrix44
drawing = ezdxf.new("R2018", setup=True)
model = drawing.modelspace()
part = drawing.blocks.new("PART")
part.add_attdef("TAG", (0, 0), "?")
part.add_circle((0, 0), 1)
model.add_point((1, 2)); model.add_line((0, 0), (1, 1)); model.add_circle((0, 0), 1); model.add_arc((0, 0), 1, 0, 90)
model.add_ellipse((0, 0), (2, 0), 0.5); model.add_text("text"); model.add_mtext("paragraph")
model.add_lwpolyline([(0, 0), (1, 0), (1, 1)]); model.add_polyline2d([(0, 0), (1, 0)]); model.add_polyline3d([(0, 0, 1), (1, 0, 1)])
model.add_polymesh((3, 3)); model.add_polyface().append_face([(0, 0), (1, 0), (1, 1)])
model.add_spline([(0, 0), (1, 1), (2, 0)]); model.add_helix(1, 1, 3)
model.add_solid([(0, 0), (1, 0), (1, 1)]); model.add_trace([(0, 0), (1, 0), (1, 1), (0, 1)])
model.add_3dface([(0, 0), (1, 0), (1, 1)]); model.add_mesh()
model.add_hatch().paths.add_polyline_path([(0, 0), (1, 0), (1, 1)])
model.add_mpolygon().paths.add_polyline_path([(0, 0), (1, 0), (1, 1)])
model.add_blockref("PART", (5, 5)).add_auto_attribs({"TAG": "value"})
model.add_attdef("OWN", (0, 0)); model.add_attdef("LINES", (0, 0))
model[-1].set_mtext(model.add_mtext("two\\nlines"))
model.add_linear_dim((0, 2), (0, 0), (5, 0)).render(); model.add_leader([(0, 0), (1, 1)]); model.add_mline([(0, 0), (1, 0)])
model.add_ray((0, 0), (1, 0)); model.add_xline((0, 0), (1, 0)); model.add_shape("S")
model.add_image(drawing.add_image_def("none.png", (10, 10)), (0, 0), (1, 1)); model.add_wipeout([(0, 0), (1, 1)])
model.add_underlay(drawing.add_underlay_def("none.pdf", "pdf")); model.add_region(); model.add_3dsolid(); model.add_body()
model.add_surface(); model.add_extruded_surface(); model.add_lofted_surface(); model.add_revolved_surface(); model.add_swept_surface()
drawing.layout("Layout1").add_viewport((5, 5), (5, 5), (0, 0), 5)
for entity in [*model, *drawing.layout("Layout1")]:
    for each in [entity, *getattr(entity, "attribs", [])] if LINK else []:
        each.set_hyperlink(f"https://other.example/{each.dxftype()}/{each.dxf.handle}")
drawing.saveas(sys.argv[1])
"""

# What another reader finds: type, handle and address of each entity.
READ = """
import sys, ezdxf
drawing = ezdxf.readfile(sys.argv[1])
for entity in [*drawing.modelspace(), *drawing.layout("Layout1")]:
    for each in [entity, *getattr(entity, "attribs", [])]:
        print(each.dxftype(), each.dxf.handle, each.get_hyperlink()[0])
print(len(drawing.audit().errors), "errors")
"""

# The same through LISP; ends of sequences have no links that others read.
EACH = """
(defun each (action / entity data)
  (setq entity (entnext))
  (while entity
    (setq data (entget entity))
    (if (not (member (cdr (assoc 0 data)) '("SEQEND" "VERTEX")))
      (apply action (list entity (cdr (assoc 0 data)) (cdr (assoc 5 data)))))
    (setq entity (entnext entity))))
"""
SET = EACH + """
(defun link (entity type handle)
  (seturl entity (strcat "https://example.org/" type "/" handle "/\u0416\u20ac")))
(each 'link)
"""
GET = EACH + """
(defun show (entity type handle)
  (princ (strcat type " " handle " " (cond ((geturl entity)) ("none")) "\\n")))
(each 'show)
"""


class Hyperlinks(LispHostTest):
    def make(self, linked: bool) -> None:
        self.others(f"LINK = {linked}\n{MAKE}")

    def others(self, script: str) -> str:
        run = subprocess.run([OTHERS, "-c", script, "all.dxf"], cwd=self.folder, capture_output=True, text=True)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout

    def entities(self, lines: str) -> list[list[str]]:
        return sorted(line.split() for line in lines.splitlines())

    def test_others_read_those_that_were_set_on_every_kind_of_entity(self):
        self.make(linked=False)
        self.write("set.lsp", SET)
        self.write("get.lsp", GET)
        outcome = self.lisphost("run", "--drawing", "all.dxf", "--save", "all.dxf", "set.lsp", "get.lsp")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        here = self.entities(outcome.output)
        self.assertGreaterEqual(len({entity[0] for entity in here}), 38)
        for type, handle, address in here:
            self.assertEqual(address, f"https://example.org/{type}/{handle}/\u0416\u20ac")
        there = self.entities(self.others(READ))
        self.assertIn(["0", "errors"], there)
        there.remove(["0", "errors"])
        self.assertEqual(there, here)

    def test_those_of_others_are_read_on_every_kind_of_entity(self):
        self.make(linked=True)
        self.write("get.lsp", GET)
        outcome = self.lisphost("run", "--drawing", "all.dxf", "get.lsp")
        here = self.entities(outcome.output)
        self.assertGreaterEqual(len({entity[0] for entity in here}), 38)
        for type, handle, address in here:
            self.assertEqual(address, f"https://other.example/{type}/{handle}")


if __name__ == "__main__":
    unittest.main()
