#pragma once

#include <QObject>

class QUrl;

// Opens the documents that modules give to QDesktopServices, as long as it lives, and notes it like every launch. The
// screen of headless runs has no desktop behind it that would; with windows it is the same, so that a document opens in
// one program wherever it is opened from.
class DocumentOpener final : public QObject
{
    Q_OBJECT

public:
    DocumentOpener();
    ~DocumentOpener() override;

    Q_INVOKABLE void open(const QUrl &document);
};
