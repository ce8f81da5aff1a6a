#include "functions/MessageBox.h"

#include "sdk/fx/ui/CFxMessageBox.h"

#include <array>
#include <vector>

using Button = QMessageBox::StandardButton;

namespace {

// One subtraction alone: a code with higher flags keeps a remainder that names no buttons.
unsigned withoutDefaultButton(unsigned code)
{
    for (const unsigned value : {768u, 512u, 256u}) {
        if (code >= value)
            return code - value;
    }
    return code;
}

struct IconRow
{
    unsigned value;
    QMessageBox::Icon icon;
};

constexpr std::array<IconRow, 4> icons = {{
    {64, QMessageBox::Information},
    {48, QMessageBox::Warning},
    {32, QMessageBox::Question},
    {16, QMessageBox::Critical},
}};

// Gives what is left of the code: the buttons value.
unsigned setIcon(QMessageBox &box, unsigned code)
{
    for (const IconRow &row : icons) {
        if (code >= row.value) {
            box.setIcon(row.icon);
            return code - row.value;
        }
    }
    return code;
}

const std::vector<Button> &buttonsOf(unsigned value)
{
    static const std::array<std::vector<Button>, 6> sets = {{
        {Button::Ok},
        {Button::Ok, Button::Cancel},
        {Button::Abort, Button::Retry, Button::Ignore},
        {Button::Yes, Button::No, Button::Cancel},
        {Button::Yes, Button::No},
        {Button::Retry, Button::Cancel},
    }};
    static const std::vector<Button> none;
    return value < sets.size() ? sets[value] : none;
}

int resultOf(int button)
{
    constexpr std::array<Button, 9> numbered = {Button::Ok,    Button::Cancel, Button::Abort,
                                                Button::Retry, Button::Ignore, Button::Yes,
                                                Button::No,    Button::Close,  Button::Help};
    for (std::size_t i = 0; i < numbered.size(); ++i) {
        if (numbered[i] == button)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

} // namespace

int showMessageBox(QWidget *, const QString &text, const QString &title, std::uint16_t code, Qt::TextFormat textFormat)
{
    CFxMessageBox box;
    box.setTextFormat(textFormat);
    box.setAttribute(Qt::WA_QuitOnClose, false); // closing a box never ends the host
    box.setWindowTitle(title);
    box.setText(text);
    const std::vector<Button> &buttons = buttonsOf(setIcon(box, withoutDefaultButton(code)));
    if (buttons.empty())
        return 0;
    for (const Button button : buttons)
        box.addButton(button);
    return resultOf(box.exec());
}
