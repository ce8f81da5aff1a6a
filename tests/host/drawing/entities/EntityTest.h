#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/DrawingWriter.h"
#include "host/drawing/entities/EntityListing.h"
#include "tests/host/drawing/SampleDrawing.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace drawing {

// A drawing of the one entity section, in the form of R2000 and later, or of R12.
inline std::string drawingText(std::string_view version, std::string_view entities)
{
    std::string text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\n";
    text.append(version).append("\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n").append(entities);
    return text + "0\nENDSEC\n0\nEOF\n";
}

class EntityTest : public testing::Test
{
protected:
    // Opens a drawing and gives its first entity.
    RecordId open(std::string_view version, std::string_view entities)
    {
        const QString path = m_folder.filePath(QStringLiteral("drawing.dxf"));
        QFile file(path);
        const std::string text = drawingText(version, entities);
        if (!file.open(QFile::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0)
            return NoRecord;
        file.close();
        m_drawing = std::make_unique<Drawing>(path);
        return database().firstIn(database().section(known::Entities));
    }

    Drawing &drawing() { return *m_drawing; }
    Database &database() { return m_drawing->database(); }

    // The codes of a listing, those of groups that are not in the file in brackets: "0 [330] 5".
    std::string codes(RecordId id)
    {
        std::string text;
        for (const ListedGroup &listed : listing(drawing(), id)) {
            const std::string code = std::to_string(listed.group.code);
            text += (text.empty() ? "" : " ") + (listed.origin < 0 ? "[" + code + "]" : code);
        }
        return text;
    }

    // What the file would have of an entity, in one line: "0 LINE,8 0,10 1.0".
    std::string written(RecordId id)
    {
        std::string text;
        bool isCode = true;
        for (const char character : database().bytes(id)) {
            if (character == '\r' || (character == ' ' && isCode))
                continue;
            text += character == '\n' ? (isCode ? ' ' : ',') : character;
            isCode = character == '\n' ? !isCode : isCode;
        }
        if (!text.empty())
            text.pop_back();
        return text;
    }

    std::unique_ptr<Drawing> m_drawing = std::make_unique<Drawing>();

private:
    QTemporaryDir m_folder;
};

// The groups of a listing, as a program's list would have them.
inline GroupList groupsOf(const std::vector<ListedGroup> &listed)
{
    GroupList groups;
    for (const ListedGroup &one : listed)
        groups.push_back(one.group);
    return groups;
}

} // namespace drawing
