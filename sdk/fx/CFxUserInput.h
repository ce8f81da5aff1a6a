#pragma once

#include "sdk/fx/CFxString.h"

struct LispPoint;

// Asks the person at a document's command line. The statuses are those of LispStatus.h.
class CFxUserInput
{
public:
    // Limits and keywords of the next request; 0 and no keywords: none.
    virtual int initGet(int bits, const char16_t *keywords) = 0;
    // StatusNormal and the point; StatusCancelled; StatusKeyword for any other input, which goes to `keyword`: a
    // keyword, another text as it stands, nothing for Enter alone. The base point may be null.
    virtual int getPoint(const char16_t *prompt, const LispPoint *base, LispPoint *result, CFxString *keyword) = 0;

protected:
    ~CFxUserInput() = default;
};
