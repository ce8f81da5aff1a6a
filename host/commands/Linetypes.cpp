#include "host/commands/Linetypes.h"

#include "host/commands/TableRecords.h"
#include "host/interpreter/text/WildcardPattern.h"

#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <array>
#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

struct Linetype
{
    std::u16string name, description;
    std::vector<double> dashes; // in drawing units; negative: gap, 0: dot
};

struct StandardLinetype
{
    const char16_t *name;
    const char16_t *description;
    std::array<double, 6> dashes;
    int count; // of them
};

constexpr StandardLinetype standard[] = {
    {u"BORDER", u"Border __ __ . __ __ . __ __ .", {0.5, -0.25, 0.5, -0.25, 0, -0.25}, 6},
    {u"CENTER", u"Center ____ _ ____ _ ____ _", {1.25, -0.25, 0.25, -0.25}, 4},
    {u"DASHDOT", u"Dash dot __ . __ . __ . __", {0.5, -0.25, 0, -0.25}, 4},
    {u"DASHED", u"Dashed __ __ __ __ __ __ __", {0.5, -0.25}, 2},
    {u"DIVIDE", u"Divide ____ . . ____ . . ____", {0.5, -0.25, 0, -0.25, 0, -0.25}, 6},
    {u"DOT", u"Dot . . . . . . . . . . . .", {0, -0.25}, 2},
    {u"HIDDEN", u"Hidden __ __ __ __ __ __ __", {0.25, -0.125}, 2},
    {u"PHANTOM", u"Phantom ______  __  __  ______", {1.25, -0.25, 0.25, -0.25, 0.25, -0.25}, 6},
};

// Each standard linetype is there in half and in double size, too.
std::vector<Linetype> standardLinetypes()
{
    std::vector<Linetype> all;
    for (const StandardLinetype &one : standard) {
        const std::vector<double> dashes(one.dashes.begin(), one.dashes.begin() + one.count);
        for (const auto &[suffix, factor] : {std::pair(u"", 1.0), std::pair(u"2", 0.5), std::pair(u"X2", 2.0)}) {
            Linetype linetype{std::u16string(one.name) + suffix, one.description, dashes};
            for (double &dash : linetype.dashes)
                dash *= factor;
            all.push_back(std::move(linetype));
        }
    }
    return all;
}

// The definitions of a linetype file: "*NAME,description" and, in the line behind it, "A,0.5,-0.25". What has shapes or
// texts in it is passed over.
std::vector<Linetype> linetypesOf(QTextStream &stream)
{
    std::vector<Linetype> all;
    QString header;
    while (!stream.atEnd()) {
        const QString line = stream.readLine().trimmed();
        if (line.startsWith(u'*')) {
            header = line.mid(1);
        } else if (!header.isEmpty() && line.startsWith(u'A', Qt::CaseInsensitive) && !line.contains(u'[')) {
            Linetype linetype{header.section(u',', 0, 0).trimmed().toStdU16String(),
                              header.section(u',', 1).trimmed().toStdU16String(),
                              {}};
            for (const QString &dash : line.section(u',', 1).split(u','))
                linetype.dashes.push_back(dash.trimmed().toDouble());
            all.push_back(std::move(linetype));
            header.clear();
        }
    }
    return all;
}

void addLinetype(Context &context, const Linetype &linetype)
{
    enum Code : int {
        NameCode = 2,
        DescriptionCode = 3,
        LengthCode = 40,
        DashCode = 49,
        CountCode = 73,
        AlignmentCode = 72,
        ElementCode = 74
    };
    constexpr std::int64_t AlignmentA = 65;
    double length = 0;
    for (const double dash : linetype.dashes)
        length += std::abs(dash);
    drawing::GroupList groups{textGroup(drawing::groupcode::Type, u"LTYPE"),
                              textGroup(NameCode, linetype.name),
                              integerGroup(drawing::groupcode::Count, 0),
                              textGroup(DescriptionCode, linetype.description),
                              integerGroup(AlignmentCode, AlignmentA),
                              integerGroup(CountCode, static_cast<std::int64_t>(linetype.dashes.size())),
                              realGroup(LengthCode, length)};
    for (const double dash : linetype.dashes) {
        groups.push_back(realGroup(DashCode, dash));
        if (!context.database().isBefore2000())
            groups.push_back(integerGroup(ElementCode, 0));
    }
    addRecord(context, groups);
}

} // namespace

RecordId ensureLinetype(Context &context, const std::u16string &name)
{
    if (const RecordId there = findRecord(context, drawing::known::Linetype, name); there != drawing::NoRecord)
        return there;
    for (const Linetype &linetype : standardLinetypes()) {
        if (drawing::folded(linetype.name) != drawing::folded(name))
            continue;
        addLinetype(context, linetype);
        return findRecord(context, drawing::known::Linetype, name);
    }
    return drawing::NoRecord;
}

std::size_t loadLinetypes(Context &context, const std::u16string &pattern, const QString &file)
{
    const lisp::WildcardPattern wanted(drawing::folded(pattern));
    QFile source(file);
    QTextStream stream(&source);
    const bool isOpen = !file.isEmpty() && source.open(QIODevice::ReadOnly | QIODevice::Text);
    std::size_t found = 0;
    for (const Linetype &linetype : isOpen ? linetypesOf(stream) : standardLinetypes()) {
        if (!wanted.matches(drawing::folded(linetype.name)))
            continue;
        ++found;
        if (findRecord(context, drawing::known::Linetype, linetype.name) == drawing::NoRecord)
            addLinetype(context, linetype);
    }
    return found;
}

} // namespace commands
