"""Boxes of entities from exact formulas over ezdxf's construction tools, as something to compare with that shares no
code with the drawing database."""

import math

from ezdxf.entities import Ellipse
from ezdxf.math import BoundingBox, ConstructionEllipse, Matrix44, OCS, Vec3, bulge_to_arc
from ezdxf.math.transformtools import NonUniformScalingError
from ezdxf.render.trace import LinearTrace

TURN = 2 * math.pi


def ellipse_points(ellipse):
    """The ends, and the extreme places along each axis that lie between them."""
    parameters = [ellipse.start_param, ellipse.end_param]
    sweep = (ellipse.end_param - ellipse.start_param) % TURN or TURN
    for major, minor in zip(ellipse.major_axis.xyz, ellipse.minor_axis.xyz):
        top = math.atan2(minor, major)
        parameters += [t for t in (top, top + math.pi) if (t - ellipse.start_param) % TURN <= sweep]
    return list(ellipse.vertices(parameters))


def arc_ellipse(centre, radius, start, end, ocs):
    """Of an arc in object coordinates, angles in degrees."""
    ellipse = ConstructionEllipse.from_arc(centre, radius, Vec3(0, 0, 1), start, end)
    if math.isclose(abs(end - start) % 360, 0, abs_tol=1e-12):
        ellipse.start_param, ellipse.end_param = 0, TURN
    return transformed(ellipse, ocs)


def transformed(ellipse, ocs):
    if ocs.transform:
        ellipse.center = ocs.to_wcs(ellipse.center)
        ellipse.major_axis = ocs.to_wcs(ellipse.major_axis)
        ellipse.minor_axis = ocs.to_wcs(ellipse.minor_axis)
        ellipse.extrusion = Vec3(ocs.uz)
    return ellipse


def spline_points(spline):
    """The ends, and where a derivative is null, found by bisection between many places."""
    steps = 15 * spline.count
    low, high = spline.knots()[spline.order - 1], spline.knots()[spline.count]

    def slope(t, axis):
        return spline.derivative(t, n=1)[1].xyz[axis]

    places = [low + (high - low) * i / steps for i in range(steps + 1)]
    points = [spline.point(t) for t in places]
    for axis in range(3):
        slopes = [slope(t, axis) for t in places]
        for i in range(steps):
            if slopes[i] * slopes[i + 1] >= 0:
                continue
            a, b = places[i], places[i + 1]
            for _ in range(60):
                middle = (a + b) / 2
                a, b = (middle, b) if slope(middle, axis) * slopes[i] > 0 else (a, middle)
            points.append(spline.point(a))
    return points


def spiral_points(centre, radii, angles, ocs):
    """The edge of a bent segment whose width changes: dense places, the best ones refined."""

    def place(s):
        radius, angle = (a + (b - a) * s for a, b in (radii, angles))
        return ocs.to_wcs(Vec3(centre) + Vec3.from_angle(angle, radius))

    count, points = 400, [place(0), place(1)]
    for axis in range(3):
        for sign in (1, -1):
            best = max(range(count + 1), key=lambda i: sign * place(i / count).xyz[axis])
            low, high = max(0, best - 1) / count, min(count, best + 1) / count
            for _ in range(100):
                a, b = low + (high - low) / 3, high - (high - low) / 3
                low, high = (a, high) if sign * place(a).xyz[axis] < sign * place(b).xyz[axis] else (low, b)
            points.append(place((low + high) / 2))
    return points


def bent_wide_points(start, end, bulge, widths, elevation, ocs):
    centre, first, last, radius = bulge_to_arc(start, end, bulge)
    angles = (first, first + (last - first) % TURN)
    if bulge < 0:
        angles = angles[::-1]
    centre = Vec3(centre.x, centre.y, elevation)
    return [
        point
        for side in (0.5, -0.5)
        for point in spiral_points(centre, [max(0, radius + side * width) for width in widths], angles, ocs)
    ]


def wide_polyline_points(vertices, closed, elevation, ocs):
    """`vertices`: (x, y, start width, end width, bulge), either all straight or all bent."""
    if any(vertex[4] for vertex in vertices):
        ends = vertices[1:] + (vertices[:1] if closed else [])
        points = []
        for (x, y, first, last, bulge), end in zip(vertices, ends):
            points += bent_wide_points(Vec3(x, y), Vec3(end[0], end[1]), bulge, (first, last), elevation, ocs)
        return points

    trace = LinearTrace()
    for x, y, first, last, _ in vertices + (vertices[:1] if closed else []):
        trace.add_station((x, y), first, last)
    return [ocs.to_wcs(Vec3(p.x, p.y, elevation)) for face in trace.faces() for p in face]


def hatch_points(hatch):
    ocs, points = hatch.ocs(), []
    elevation = Vec3(hatch.dxf.elevation).z
    for path in hatch.paths:
        if path.type.name == "POLYLINE":
            points += bulged_points(list(path.vertices), True, elevation, ocs)
            continue
        for edge in path.edges:
            if edge.type.name == "LINE":
                points += [ocs.to_wcs(Vec3(p.x, p.y, elevation)) for p in (edge.start, edge.end)]
            elif edge.type.name == "ARC":
                centre = Vec3(edge.center.x, edge.center.y, elevation)
                points += ellipse_points(arc_ellipse(centre, edge.radius, edge.start_angle, edge.end_angle, ocs))
            elif edge.type.name == "ELLIPSE":
                ellipse = edge.construction_tool()
                ellipse.center = ellipse.center.replace(z=elevation)
                points += ellipse_points(transformed(ellipse, ocs))
            else:
                spline = edge.construction_tool()
                matrix = Matrix44.ucs(*(Vec3(v) for v in (ocs.ux, ocs.uy, ocs.uz)), origin=ocs.to_wcs((0, 0, elevation)))
                points += spline_points(spline.transform(matrix))
    return points


def bulged_points(vertices, closed, elevation, ocs):
    """`vertices`: (x, y, bulge)."""
    points = [ocs.to_wcs(Vec3(x, y, elevation)) for x, y, _ in vertices]
    for (x, y, bulge), (u, v, _) in zip(vertices, vertices[1:] + (vertices[:1] if closed else [])):
        if bulge:
            centre, start, end, radius = bulge_to_arc((x, y), (u, v), bulge)
            centre = Vec3(centre.x, centre.y, elevation)
            points += ellipse_points(arc_ellipse(centre, radius, math.degrees(start), math.degrees(end), ocs))
    return points


def polyline_points(entity, vertices):
    """`vertices`: (x, y, start width, end width, bulge)."""
    ocs = entity.ocs()
    elevation = entity.dxf.elevation
    elevation = elevation if isinstance(elevation, (int, float)) else Vec3(elevation).z
    closed = entity.closed if entity.dxftype() == "LWPOLYLINE" else entity.is_closed
    if any(vertex[2] or vertex[3] for vertex in vertices):
        return wide_polyline_points(vertices, closed, elevation, ocs)
    return bulged_points([(x, y, bulge) for x, y, _, _, bulge in vertices], closed, elevation, ocs)


def flat_points(entity):
    kind, dxf = entity.dxftype(), entity.dxf
    if kind == "LINE":
        return [dxf.start, dxf.end]
    if kind == "POINT":
        return [dxf.location]
    if kind in ("CIRCLE", "ARC"):
        start, end = (dxf.start_angle, dxf.end_angle) if kind == "ARC" else (0, 360)
        return ellipse_points(arc_ellipse(dxf.center, dxf.radius, start, end, entity.ocs()))
    if kind == "ELLIPSE":
        return ellipse_points(entity.construction_tool())
    if kind == "SPLINE":
        return spline_points(entity.construction_tool())
    if kind in ("SOLID", "TRACE"):
        return entity.wcs_vertices()
    if kind == "3DFACE":
        return entity.wcs_vertices()
    if kind == "LWPOLYLINE":
        width = entity.dxf.get("const_width", 0)
        vertices = [(x, y, width or a, width or b, c) for x, y, a, b, c in entity.get_points("xyseb")]
        return polyline_points(entity, vertices)
    if kind == "POLYLINE" and entity.is_2d_polyline:
        vertices = [
            (*v.dxf.location.vec2, *(v.dxf.get(name, entity.dxf.get("default_" + name, 0)) for name in
                                     ("start_width", "end_width")), v.dxf.bulge)
            for v in entity.vertices
        ]
        return polyline_points(entity, vertices)
    if kind == "POLYLINE":
        return [v.dxf.location for v in entity.vertices if not v.is_face_record]
    if kind == "HATCH":
        return hatch_points(entity)
    if kind in ("IMAGE", "WIPEOUT"):
        return entity.boundary_path_wcs()
    if kind == "LEADER":
        return list(entity.vertices)
    if kind == "MLINE":
        return [place for line in entity.virtual_entities() for place in (line.dxf.start, line.dxf.end)]
    raise ValueError(kind)


def up_of(entity):
    thickness, extrusion = (
        entity.dxf.get(name, default) if entity.dxf.is_supported(name) else default
        for name, default in (("thickness", 0), ("extrusion", (0, 0, 1)))
    )
    return Vec3(extrusion).normalize(thickness)


def parts_of(insert, outer):
    """Copies of what an insert shows, in the world. The library's own way lets an insert in a block be scaled as if it
    were not rotated; so the matrices are multiplied here."""
    matrix = insert.matrix44() * outer
    for entity in insert.block():
        if entity.dxftype() == "INSERT":
            yield from parts_of(entity, matrix)
            continue
        copy = entity.copy()
        try:
            copy.transform(matrix)
        except NonUniformScalingError:
            copy = Ellipse.from_arc(entity)
            copy.transform(matrix)
        yield copy


def box_of(entity):
    if entity.dxftype() == "INSERT":
        inserts = entity.multi_insert() if entity.mcount > 1 else [entity]
        return BoundingBox(p for insert in inserts for part in parts_of(insert, Matrix44()) for p in box_of(part))
    if entity.dxftype() == "DIMENSION":
        return BoundingBox(p for part in entity.virtual_entities() for p in box_of(part))
    points = [Vec3(p) for p in flat_points(entity)]
    return BoundingBox(points + [p + up_of(entity) for p in points])
