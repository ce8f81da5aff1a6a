#!/usr/bin/env python3
"""Writes a drawing of random entities, always the same ones, and their boxes, one line each: handle, type, the six
numbers. Usage: random_entities.py DRAWING.dxf BOXES.txt COUNT-OF-EACH-KIND"""

import math
import random
import sys

import ezdxf
from ezdxf.math import Vec3

from extents_oracle import box_of

rng = random.Random(20240229)


def number(size=100):
    return rng.uniform(-size, size)


def place():
    return number(), number(), number()


def extrusion():
    return rng.choice([(0, 0, 1), (0, 0, -1), Vec3(place()).normalize(), Vec3(0.001 * number(1), 0.01, 1).normalize()])


def plane(**more):
    return {"extrusion": extrusion(), "thickness": rng.choice([0, 0, number(10)]), **more}


def bulge():
    return rng.choice([0, 1, -1, 0.4142, number(3), number(0.001)])


def corner_path(count):
    """Wide straight segments that keep their width at corners, which are neither sharp nor nearly straight."""
    angle, at, width = number(math.pi), Vec3(number(), number()), rng.uniform(0.1, 3)
    for _ in range(count):
        end_width = rng.uniform(0.1, 3)
        yield at.x, at.y, width, end_width
        angle += rng.choice([1, -1]) * rng.uniform(0.3, 1.8)
        at += Vec3.from_angle(angle, rng.uniform(20, 60))
        width = end_width


def light_polyline(space):
    points = [(number(), number(), 0, 0, bulge()) for _ in range(rng.randint(2, 7))]
    return space.add_lwpolyline(points, "xyseb", close=rng.random() < 0.5, dxfattribs=plane(elevation=number()))


def wide_polyline(space):
    points = list(corner_path(rng.randint(2, 6)))
    return space.add_lwpolyline(points, "xyse", dxfattribs=plane(elevation=number()))


def bent_wide_polyline(space):
    widths = rng.choice([(2, 2), (rng.uniform(0, 5), rng.uniform(0.1, 5)), (30, 0.5)])
    points = [(number(), number(), *widths, rng.choice([1, -1]) * rng.uniform(0.05, 2)) for _ in range(rng.randint(2, 4))]
    return space.add_lwpolyline(points, "xyseb", close=rng.random() < 0.5, dxfattribs=plane(elevation=number()))


def plane_polyline(space):
    attributes = plane(elevation=(0, 0, number()))
    polyline = space.add_polyline2d([(number(), number(), bulge()) for _ in range(rng.randint(2, 7))], format="xyb",
                                    close=rng.random() < 0.5, dxfattribs=attributes)
    return polyline


def mesh(space):
    m, n = rng.randint(2, 5), rng.randint(2, 5)
    entity = space.add_polymesh((m, n))
    for i in range(m):
        for j in range(n):
            entity.set_mesh_vertex((i, j), place())
    return entity


def polyface(space):
    entity = space.add_polyface()
    corners = [place() for _ in range(4)]
    entity.append_faces([corners, corners[:3]])
    return entity


def spline(space):
    points = [place() for _ in range(rng.randint(4, 9))]
    degree = rng.randint(2, 3)
    if rng.random() < 0.5:
        weights = [rng.uniform(0.2, 4) for _ in points]
        return space.add_rational_spline(points, weights, degree=degree)
    if rng.random() < 0.5:
        return space.add_open_spline(points, degree=degree)
    entity = space.add_spline(degree=degree)
    entity.set_uniform(points, degree=degree)
    return entity


def hatch(space):
    entity = space.add_hatch(dxfattribs={"extrusion": extrusion(), "elevation": (0, 0, number())})
    if rng.random() < 0.4:
        entity.paths.add_polyline_path([(number(), number(), bulge()) for _ in range(rng.randint(3, 6))])
        return entity
    path = entity.paths.add_edge_path()
    start = rng.uniform(0, 360)
    path.add_line((number(), number()), (number(), number()))
    path.add_arc((number(), number()), abs(number()), start, start + rng.uniform(10, 350), ccw=rng.random() < 0.5)
    path.add_ellipse((number(), number()), (number(), number()), rng.uniform(0.1, 1), start, start + rng.uniform(10, 350),
                     ccw=rng.random() < 0.5)
    path.add_spline(control_points=[(number(), number()) for _ in range(6)],
                    knot_values=[0, 0, 0, 0, 1, 2.5, 3, 3, 3, 3], degree=3)
    return entity


def arc(space):
    start = number(720)
    return space.add_arc(place(), abs(number()) + 0.1, start, start + rng.uniform(1, 359), dxfattribs=plane())


def ellipse(space):
    z = Vec3(extrusion())
    major = z.cross((0, 0, 1)) if abs(z.z) < 0.99 else Vec3(number(), number())
    start, end = rng.choice([(0, math.tau), (number(6), number(6))])
    return space.add_ellipse(place(), major * abs(number()), rng.uniform(0.01, 1), start, end,
                             dxfattribs={"extrusion": Vec3(0, 0, z.z).normalize() if abs(z.z) >= 0.99 else z})


def corners(add):
    def make(space):
        z = number()
        return add(space)([(number(), number(), z) for _ in range(rng.choice([3, 4]))], dxfattribs=plane())

    return make


def image(space):
    definition = space.doc.add_image_def("picture.png", (640, 480))
    entity = space.add_image(definition, place(), (abs(number()), abs(number())), rotation=number(360))
    entity.set_boundary_path([(number(300), number(300)) for _ in range(5)])
    entity.dxf.clipping = 1
    return entity


def insert(space):
    x = rng.choice([1, 2.5, -1.5])
    scale = rng.choice([(x, x, x), (number(3), number(3), number(3))])
    entity = space.add_blockref(rng.choice(["PART", "NESTED"]), place(), dxfattribs={
        "xscale": scale[0] or 1, "yscale": scale[1] or 1, "zscale": scale[2] or 1, "rotation": number(360),
        "extrusion": rng.choice([(0, 0, 1), (0, 0, -1), Vec3(place()).normalize()])})
    if rng.random() < 0.3:
        entity.grid((rng.randint(1, 4), rng.randint(1, 4)), (number(), number()))
    return entity


def dimension(space):
    style = space.add_linear_dim((number(), number()), (number(), number()), (number(), number()), angle=number(90),
                                 text=" ")  # none: this is not about fonts
    return style.render() and style.dimension


def leader(space):
    entity = space.add_leader([place() for _ in range(rng.randint(2, 5))])
    entity.dxf.has_arrowhead = 0
    return entity


def multiline(space):
    points = [(number(), number(), 7) for _ in range(rng.randint(2, 5))]
    is_closed = len(points) > 2 and rng.random() < 0.5
    return space.add_mline(points, close=is_closed, dxfattribs={"scale_factor": rng.uniform(0.1, 5)})


def curves(block):
    block.block.dxf.base_point = (1, 2, 3)
    block.add_line((0, 0, 0), (10, 5, 2))
    block.add_circle((5, 5, 1), 4)
    block.add_arc((-5, 0), 3, 30, 200)
    block.add_ellipse((2, 2), (6, 1), 0.4, 0.5, 4)
    block.add_open_spline([(0, 0), (5, 9), (9, -4), (12, 3), (1, 1, 8)])
    block.add_3dface([(0, 0, 0), (1, 0, 5), (2, 2, 2), (0, 3, 0)])
    block.add_solid([(0, 0), (4, 0), (0, 4), (4, 4)])


KINDS = [
    lambda space: space.add_line(place(), place(), dxfattribs=plane()),
    lambda space: space.add_point(place(), dxfattribs=plane()),
    lambda space: space.add_circle(place(), abs(number()) + 0.1, dxfattribs=plane()),
    arc, ellipse, light_polyline, wide_polyline, bent_wide_polyline, plane_polyline, mesh, polyface, spline,
    hatch, image, insert, dimension, leader, multiline,
    lambda space: space.add_polyline3d([place() for _ in range(rng.randint(2, 7))]),
    corners(lambda space: space.add_solid), corners(lambda space: space.add_trace),
    lambda space: space.add_3dface([place() for _ in range(4)]),
]


def main(drawing, boxes, count):
    doc = ezdxf.new("R2010", setup=True)
    curves(doc.blocks.new("PART"))
    nested = doc.blocks.new("NESTED")
    nested.add_blockref("PART", (3, 4, 5), dxfattribs={"rotation": 30, "xscale": 2, "yscale": 2, "zscale": 2})
    nested.add_blockref("PART", (-3, 4, 5), dxfattribs={"xscale": -1})
    space = doc.modelspace()
    entities = [kind(space) for _ in range(count) for kind in KINDS]
    doc.saveas(drawing)
    with open(boxes, "w", encoding="ascii") as output:
        for entity in entities:
            box = box_of(entity)
            print(entity.dxf.handle, entity.dxftype(), *(repr(v) for v in (*box.extmin, *box.extmax)), file=output)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], int(sys.argv[3]))
