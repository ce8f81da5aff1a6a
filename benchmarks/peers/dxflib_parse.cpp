// Parses the drawing named on the command line with dxflib and forgets what it reads.

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

int main(int argc, char **argv)
{
    DL_CreationAdapter nothing;
    return argc == 2 && DL_Dxf().in(argv[1], &nothing) ? 0 : 1;
}
