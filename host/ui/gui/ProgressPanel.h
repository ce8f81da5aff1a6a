#pragma once

#include "host/kernel/windows/UserInterface.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QToolButton;

// The progress meter of the status bar, with a button to stop the program. Hidden while there is no progress.
class ProgressPanel final : public QWidget
{
    Q_OBJECT

public:
    ProgressPanel();

    void showProgress(const Progress &progress);

Q_SIGNALS:
    void cancelled();

private:
    QLabel *m_label;
    QProgressBar *m_bar;
    QToolButton *m_cancel;
};
