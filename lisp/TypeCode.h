#pragma once

// What a node holds. The numbers are the host's.
enum TypeCode : int {
    TypeNone = 5000, // no value; ends the arguments of a list-building call
    TypeReal = 5001,
    TypePoint2d = 5002,
    TypeShort = 5003,
    TypeString = 5005,
    TypeEntity = 5006,
    TypeSelectionSet = 5007,
    TypePoint3d = 5009,
    TypeLong = 5010,
    TypeListBegin = 5016,
    TypeListEnd = 5017,
    TypeDot = 5018,
    TypeNil = 5019,
    TypeTrue = 5021,
};
