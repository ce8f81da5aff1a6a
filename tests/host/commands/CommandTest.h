#pragma once

#include "host/drawing/edit/GroupEditing.h"
#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <string>
#include <vector>

// A document with an empty drawing, whose command line is driven by LISP as programs do it.
class CommandTest : public testing::Test, public lisp::Console
{
protected:
    CommandTest();
    ~CommandTest() override = default;

    // The printed value of the last expression, or "error: TEXT".
    std::string evaluate(const std::string &source);
    void write(std::u16string_view text) override { m_printed += text; }
    void openEmptyDrawing(const std::string &version); // as "AC1009"
    std::string takePrinted();                         // what the command line has shown since the last call

    drawing::Database &database() { return m_document.drawing().database(); }
    drawing::RecordId add(const drawing::GroupList &groups); // at the end of the model
    drawing::RecordId last();
    drawing::GroupList lastGroups();
    std::vector<std::string> types(); // of the entities of the model that are not erased, in order

    HostServices m_services;
    Document m_document;

private:
    std::u16string m_printed;
    QTemporaryDir m_drawings;
};
