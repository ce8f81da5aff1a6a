// sin and cos at once, which GCC makes of the two; see cmake/WindowsMath.cmake. Compiled so that it stays two calls
// here.

#include <math.h>

void sincos(double angle, double *sine, double *cosine)
{
    *sine = sin(angle);
    *cosine = cos(angle);
}
