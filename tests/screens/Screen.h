#pragma once

#include "tests/functions/ui/UiTest.h"

#include <QDialog>

// Handlers that show windows on a real screen.
class ScreenTest : public UiTest
{
protected:
    ScreenTest();
};

// Waits until the window is drawn and active; the picture shows it with its frame.
void waitUntilReady(QWidget &window);
void takePicture(QWidget &window, const QString &name);

// Presses keys as the keyboard does, wherever the focus is.
void typeKey(QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void typeText(QWidget &window, const QString &text);
void click(QWidget &widget); // with the mouse, in its middle
