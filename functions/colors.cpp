#include "functions/colors.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "sdk/fx/CFxString.h"
#include "sdk/fx/CFxSystemServices.h"
#include "sdk/oda/OdCmEntityColor.h"

#include <QCoreApplication>

#include <vector>

namespace {

constexpr int InputUnits = 100;
constexpr int NoZeroNoNegative = 6;                              // initGet's flags
constexpr std::int16_t ColorIndexCode = 62, TrueColorCode = 420; // group codes of an entity's colour

// English texts are the keys of the translations.
CFxString translated(const char *text)
{
    return {QCoreApplication::translate("", text)};
}

// (62 . index)
void returnIndex(std::int16_t index)
{
    resbuf *pair = activeLispHost()->newRb(TypeListBegin);
    std::int16_t code = ColorIndexCode;
    activeLispHost()->prependRb(pair, TypeShort, &index);
    activeLispHost()->prependRb(pair, TypeDot, nullptr);
    activeLispHost()->prependRb(pair, TypeShort, &code);
    activeLispHost()->retList(pair);
    activeLispHost()->releaseRb(pair);
}

// ((62 . index) (420 . rgb)); what does not fit a byte loses its upper bits.
void returnTrueColor(int red, int green, int blue)
{
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    const int index = OdCmEntityColor::lookUpACI(byte(red), byte(green), byte(blue));
    const int rgb = byte(red) << 16 | byte(green) << 8 | byte(blue);
    resbuf *list = activeLispHost()->buildList(
        TypeListBegin, TypeShort, ColorIndexCode, TypeDot, TypeShort, index, TypeListEnd, //
        TypeListBegin, TypeShort, TrueColorCode, TypeDot, TypeLong, rgb, TypeListEnd, TypeNone);
    activeLispHost()->retList(list);
    activeLispHost()->releaseRb(list);
}

void askTrueColor()
{
    char16_t text[InputUnits] = {};
    const CFxString prompt = translated("\nRed,Green,Blue: ");
    if (activeLispHost()->getString(0, prompt.wide_strU(), text, InputUnits) != StatusNormal)
        return;
    const std::vector<CFxString> parts = CFxString(text).SplitW(u',');
    if (parts.size() == 3) {
        returnTrueColor(parts[0].toQString().toInt(), parts[1].toQString().toInt(), parts[2].toQString().toInt());
        return;
    }
    GetFxSystemServices()->message(translated("Invalid color.  Type three comma separated values from 0 to 255."));
}

void answerKeyword(const CFxString &trueColor)
{
    char16_t keyword[InputUnits] = {};
    activeLispHost()->getInput(keyword, InputUnits);
    if (CFxString(keyword).compare(trueColor) == 0)
        askTrueColor();
}

} // namespace

int acadTruecolorcli()
{
    resbuf *indexNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (indexNode == nullptr)
        return StatusNormal;
    std::int32_t index = indexNode->resval.shortInteger;
    const CFxString trueColor = translated("Truecolor");
    activeLispHost()->initGet(NoZeroNoNegative, trueColor.wide_strU());
    const CFxString prompt(translated("\nNew Color <%1>: ").toQString().arg(index));
    const int status = activeLispHost()->getInt(prompt.wide_strU(), &index);
    if (status == StatusNormal || status == StatusNoInput)
        returnIndex(static_cast<std::int16_t>(index));
    else if (status == StatusKeyword)
        answerKeyword(trueColor);
    activeLispHost()->releaseRb(indexNode);
    return StatusNormal;
}
