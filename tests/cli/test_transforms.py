"""Objects of types that other programs make, moved, turned, scaled and mirrored: the result is what these programs
make of it themselves."""

import json
import subprocess
import unittest

from lisphost import LispHostTest

# Debian's Python, which may not be the one that runs this, has the independent reader.
READER = "/usr/bin/python3"

DRAW = """
import ezdxf
from ezdxf.math import Vec2
from ezdxf.render import ConnectionSide
drawing = ezdxf.new("R2018", setup=True)
model = drawing.modelspace()
leader = model.add_multileader_mtext("Standard")
leader.set_content("two\\\\Plines", char_height=2.5)
leader.add_leader_line(ConnectionSide.left, [Vec2(-30, -10), Vec2(-20, 5)])
leader.add_leader_line(ConnectionSide.right, [Vec2(50, -10)])
leader.build(insert=Vec2(5, 7), rotation=30)
block = drawing.blocks.new("BUBBLE")
block.add_circle((0, 0), 4)
leader = model.add_multileader_block("Standard")
leader.set_content("BUBBLE", scale=1.5)
leader.add_leader_line(ConnectionSide.left, [Vec2(-30, -10)])
leader.build(insert=Vec2(15, 27), rotation=40)
model.add_mline([(0, 0), (10, 0), (15, 8), (20, 8)], dxfattribs={"justification": 2, "scale_factor": 2})
model.add_helix(radius=3, pitch=2, turns=2.5)
with model.add_mesh().edit_data() as mesh:
    mesh.vertices = [(0, 0, 0), (4, 0, 0), (4, 3, 1)]
    mesh.faces = [(0, 1, 2)]
    mesh.edges, mesh.edge_crease_values = [(0, 1)], [0.5]
lines = model.add_mtext("a\\\\Pb", dxfattribs={"insert": (3, 4), "char_height": 2, "width": 9, "text_direction": (1, 0, 0)})
model.add_attdef("TAG", (3, 4)).set_mtext(lines)
model.delete_entity(lines)
drawing.saveas("before.dxf")
"""

# What there is to compare of a drawing: numbers by type and name. The first drawing is moved by a matrix here.
LIST = """
import json, math, sys
import ezdxf
from ezdxf.math import Matrix44, Vec3

def numbers(value):
    if isinstance(value, (int, float)):
        return [value]
    if isinstance(value, Vec3):
        return list(value.xyz)
    return [number for one in value for number in numbers(one)]

def angle(radians):
    return [math.cos(radians), math.sin(radians)]

def multileader(entity):
    context, dxf = entity.context, entity.dxf
    yield "whole", [dxf.scale, dxf.dogleg_length]
    yield "sizes", [context.scale, context.char_height, context.arrow_head_size, context.landing_gap_size]
    yield "base", context.base_point
    yield "plane", [context.plane_origin, context.plane_x_axis, context.plane_y_axis, context.plane_normal_reversed]
    for leader in context.leaders:
        yield "landing", [leader.last_leader_point, leader.dogleg_vector, leader.dogleg_length]
        yield "lines", [line.vertices for line in leader.lines]
    if context.mtext:
        text = context.mtext
        yield "text", [text.insert, text.text_direction, text.extrusion, text.width, text.defined_height]
        yield "text angle", angle(text.rotation)
    if context.block:
        block = context.block
        yield "block", [block.insert, block.scale, block.extrusion, angle(block.rotation)]

def mline(entity):
    yield "whole", [entity.dxf.extrusion.normalize(), entity.dxf.start_location]
    for vertex in entity.vertices:
        yield "vertex", [vertex.location, vertex.line_direction, vertex.miter_direction]

def elements(entity):
    return [numbers([v.location, v.line_direction, v.miter_direction, *v.line_params]) for v in entity.vertices]

def helix(entity):
    dxf = entity.dxf
    yield "axis", [dxf.axis_base_point, dxf.axis_vector.normalize(), dxf.start_point, dxf.radius, dxf.turns]
    yield "points", [Vec3(point) for point in entity.control_points]

def mesh(entity):
    yield "corners", [Vec3(corner) for corner in entity.vertices]
    yield "creases", list(entity.creases)

def attdef(entity):
    text = entity if entity.dxftype() == "MTEXT" else entity.virtual_mtext_entity()
    direction = text.dxf.get("text_direction", Vec3.from_deg_angle(text.dxf.get("rotation", 0)))
    yield "lines", [text.dxf.insert, direction.normalize(), text.dxf.char_height, text.dxf.width]

LISTERS = {"MULTILEADER": multileader, "MLINE": mline, "HELIX": helix, "MESH": mesh, "ATTDEF": attdef}

def listed(entity, matrix=None):
    moved = entity
    if matrix and entity.dxftype() == "ATTDEF":
        moved = entity.virtual_mtext_entity()
    if matrix:
        moved.transform(matrix)
    return [[entity.dxftype() + " " + name, numbers([value])] for name, value in LISTERS[entity.dxftype()](moved)]

def drawing(path, matrix=None):
    return [one for entity in ezdxf.readfile(path).modelspace() for one in listed(entity, matrix)]
"""


def read(expression):
    """The value of an expression over what LIST defines."""
    script = f"{LIST}\nprint(json.dumps({expression}))"
    return json.loads(subprocess.run([READER, "-c", script], capture_output=True, text=True, check=True).stdout)


class Transforms(LispHostTest):
    def setUp(self):
        super().setUp()
        subprocess.run([READER, "-c", DRAW], cwd=self.folder, check=True, capture_output=True)

    def change(self, *commands):
        outcome = self.lisphost("eval", "--drawing", "before.dxf", "--save", "after.dxf", '(setvar "CMDECHO" 0)',
                                *[f"(progn (command {command}) 1)" for command in commands])
        self.assertNotIn("could not be changed", outcome.output)
        self.assertEqual((outcome.status, outcome.errors), (0, ""))

    def assert_same(self, found, wanted):
        self.assertEqual([name for name, _ in found], [name for name, _ in wanted])
        self.assertGreater(len(found), 20)
        for (name, own), (_, others) in zip(found, wanted):
            self.assertEqual(len(own), len(others), name)
            for one, other in zip(own, others):
                self.assertAlmostEqual(one, other, 6, f"{name}: {own}, others {others}")

    def assert_goes(self, matrix, *commands):
        self.change(*commands)
        after, before = str(self.folder / "after.dxf"), str(self.folder / "before.dxf")
        self.assert_same(read(f"drawing({after!r})"), read(f"drawing({before!r}, {matrix})"))

    def test_move(self):
        self.assert_goes("Matrix44.translate(10, 20, 30)", '"_.move" "_all" "" "1,2,3" "11,22,33"')

    def test_rotate(self):
        self.assert_goes("Matrix44.z_rotate(math.radians(50))", '"_.rotate" "_all" "" "0,0" 50')

    def test_scale(self):
        self.assert_goes("Matrix44.scale(2.5)", '"_.scale" "_all" "" "0,0" 2.5')

    def test_all_in_turn(self):
        self.assert_goes("Matrix44.translate(5, 0, 0) @ Matrix44.z_rotate(math.radians(-90)) @ Matrix44.scale(0.5)",
                         '"_.move" "_all" "" "5,0" ""', '"_.rotate" "_all" "" "0,0" -90', '"_.scale" "_all" "" "0,0" 0.5')

    def test_a_multiline_is_drawn_again_as_it_is(self):
        self.change('"_.mirror" "_all" "" "0,0" "3,1" "_y"', '"_.scale" "_all" "" "0,0" 2.5')
        multiline = f"ezdxf.readfile({str(self.folder / 'after.dxf')!r}).modelspace().query('MLINE').first"
        self.assertEqual(read(f"{multiline}.dxf.scale_factor"), 5)
        found, wanted = read(f"[(elements(one), one.update_geometry(), elements(one))[::2] for one in [{multiline}]][0]")
        self.assertEqual(len(found), 4)
        for own, others in zip(found, wanted, strict=True):
            for one, other in zip(own, others, strict=True):
                self.assertAlmostEqual(one, other, 6)

    def test_a_mirrored_drawing_is_sound(self):
        self.change('"_.mirror" "_all" "" "0,0" "0,1" "_n"')
        path = str(self.folder / "after.dxf")
        self.assertEqual(read(f"len(ezdxf.readfile({path!r}).audit().errors)"), 0)
        self.assertEqual(read(f"[one.dxf.handedness for one in ezdxf.readfile({path!r}).modelspace().query('HELIX')]"), [1, 0])


if __name__ == "__main__":
    unittest.main()
