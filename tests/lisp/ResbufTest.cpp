#include "lisp/resbuf.h"

#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

// What a host writes byte by byte is what a handler reads, on a little-endian machine.
TEST(Resbuf, ReadsWhatAHostHasLaidOut)
{
    alignas(8) unsigned char bytes[40] = {};
    const std::int16_t code = TypeLong;
    const std::int32_t number = -2;
    std::memcpy(bytes + 8, &code, sizeof code);
    std::memcpy(bytes + 16, &number, sizeof number);
    resbuf node;
    std::memcpy(&node, bytes, sizeof node);
    EXPECT_EQ(node.rbnext, nullptr);
    EXPECT_EQ(node.restype, 5010);
    EXPECT_EQ(node.resval.longInteger, -2);
    EXPECT_EQ(node.resval.shortInteger, -2);
}

TEST(Resbuf, HasTheHostsNumbers)
{
    EXPECT_EQ((std::array{TypeNone, TypeReal, TypePoint2d, TypeShort, TypeString, TypeEntity, TypeSelectionSet}),
              (std::array<TypeCode, 7>{TypeCode(5000), TypeCode(5001), TypeCode(5002), TypeCode(5003), TypeCode(5005),
                                       TypeCode(5006), TypeCode(5007)}));
    EXPECT_EQ((std::array{TypePoint3d, TypeLong, TypeListBegin, TypeListEnd, TypeDot, TypeNil, TypeTrue}),
              (std::array<TypeCode, 7>{TypeCode(5009), TypeCode(5010), TypeCode(5016), TypeCode(5017), TypeCode(5018),
                                       TypeCode(5019), TypeCode(5021)}));
    EXPECT_EQ(StatusNormal, 5100);
    EXPECT_EQ(StatusNoInput, 5000);
    EXPECT_EQ(StatusText, 5005);
    EXPECT_EQ(StatusError, -5001);
    EXPECT_EQ(StatusCancelled, -5002);
    EXPECT_EQ(StatusKeyword, -5005);
}
