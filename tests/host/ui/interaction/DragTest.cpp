// A selection that follows the cursor under the matrix of a module.

#include "lisp/LispStatus.h"
#include "tests/host/ui/interaction/InteractionTest.h"

#include <cmath>

using testing::HasSubstr;

namespace {

// Moved by half of where the cursor is.
int halfWay(const LispPoint *cursor, LispMatrix *transform)
{
    *transform = {{{1, 0, 0, cursor->x / 2}, {0, 1, 0, cursor->y / 2}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    return StatusNormal;
}

LispHost *lispHost; // handlers are told nothing

// (drag SET): the point that was picked, a typed text, or nil.
int dragHandler()
{
    LispHost &host = *lispHost;
    resbuf *arguments = host.getArgs();
    LispPoint picked{};
    const int status = host.dragSelection(&arguments->resval.name, u"\nPlace: ", 0, halfWay, &picked);
    char16_t text[512] = {};
    if (status == StatusNormal)
        host.retReal(picked.x);
    else if (status == StatusText && host.getInput(text, 512) == StatusNormal)
        host.retWStr(text);
    host.releaseRb(arguments);
    return StatusNormal;
}

class DragTest : public InteractionTest
{
protected:
    DragTest()
    {
        lispHost = document.lispHost();
        lispHost->defun(u"drag", dragHandler);
        type("(command \"_.line\" '(10 10) '(40 10) \"\")");
        type("(setq s (ssadd (entlast)))");
    }
};

} // namespace

TEST_F(DragTest, TheSelectionFollowsTheCursorAndAClickPicks)
{
    bool first = false, second = false, old = true;
    later([&] {
        move(20, 40);
        first = isHighlighted(30, 30);
        move(40, 60);
        second = isHighlighted(40, 40);
        old = isHighlighted(30, 30);
        click(40, 60);
    });
    type("(setq x (drag s))");
    EXPECT_TRUE(first);
    EXPECT_TRUE(second);
    EXPECT_FALSE(old);
    EXPECT_NEAR(std::stod(value("!x")), 40, 1 / view().scale());
    EXPECT_FALSE(isHighlighted(40, 40)) << "it is over";
    EXPECT_EQ(value("(cdr (assoc 10 (entget (entlast))))"), "(10.0 10.0 0.0)") << "the drawing stays";
}

TEST_F(DragTest, TypedTextEndsItAndEscCancels)
{
    later([this] { type("reference"); });
    EXPECT_EQ(value("(drag s)"), "\"reference\"");
    later([this] { escape(); });
    EXPECT_EQ(value("(drag s)"), "nil");
    EXPECT_THAT(output(), HasSubstr("Place: *Cancel*"));
}
