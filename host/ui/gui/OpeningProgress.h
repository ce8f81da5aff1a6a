#pragma once

#include <QElapsedTimer>
#include <QObject>

class MainWindow;

// While a file is being read: the progress meter of the window, which lives on meanwhile; Esc and the meter's button
// give up. Nothing else can be done in the window.
class OpeningProgress final : public QObject
{
public:
    struct Cancelled
    {
    };

    OpeningProgress(MainWindow &window, const QString &label);
    ~OpeningProgress() override;

    void show(double share); // throws Cancelled; from 0 to 1

private:
    MainWindow &m_window;
    QString m_label;
    QElapsedTimer m_sinceShown;
    bool m_isCancelled = false;
};
