#pragma once

#include "functions/textsearch.h"

#include "tests/support/HandlerTest.h"

class StrReplaceTest : public HandlerTest
{
protected:
    Operations replace(const std::u16string &pattern, const std::u16string &replacement, const std::u16string &where,
                       const Arguments &options = {})
    {
        Arguments arguments{text(pattern), text(replacement), text(where)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return call(acetStrReplace, arguments);
    }

    // Released is the position of the last node that was read.
    static Operations result(const char *characters, int released)
    {
        return {"getArgs", operation("retWStr", characters), "releaseRb " + std::to_string(released)};
    }
};
