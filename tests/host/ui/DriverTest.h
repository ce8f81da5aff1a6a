#pragma once

#include "host/kernel/HostServices.h"
#include "host/ui/DialogDriver.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <gtest/gtest.h>

// Dialogs answered from a script, as in a run without a person.
class DriverTest : public testing::Test
{
protected:
    DriverTest()
    {
        m_services.warn = [this](const QString &text) { m_warnings += text; };
        m_services.transcript = Transcript(path(u"transcript"_qs));
    }

    void setAnswers(const QString &lines) { m_services.answers = AnswersFile::fromText(lines, u"answers"_qs); }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    QList<QJsonObject> events() const
    {
        QFile file(path(u"transcript"_qs));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        QList<QJsonObject> result;
        for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine())
            result += QJsonDocument::fromJson(line).object();
        return result;
    }

    QStringList warnings() const { return m_warnings; }
    DialogDriver &driver() { return m_driver; }

private:
    QTemporaryDir m_folder;
    QStringList m_warnings;
    HostServices m_services;
    DialogDriver m_driver{m_services};
};

// An editor with OK and Cancel.
class EditorDialog final : public QDialog
{
public:
    EditorDialog() : m_layout(this), m_buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)
    {
        setWindowTitle(u"Editor"_qs);
        m_editor.setPlainText(u"old"_qs);
        m_layout.addWidget(&m_editor);
        m_layout.addWidget(&m_buttons);
        connect(&m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(&m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }

    QString text() const { return m_editor.toPlainText(); }

private:
    QPlainTextEdit m_editor;
    QVBoxLayout m_layout;
    QDialogButtonBox m_buttons;
};
