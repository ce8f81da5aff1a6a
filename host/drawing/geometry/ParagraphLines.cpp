#include "host/drawing/geometry/ParagraphCodes.h"
#include "host/drawing/geometry/TextPlacement.h"

namespace geometry {

namespace {

// A run or a part of one, at its place in the line.
struct Piece
{
    Run run;
    double x = 0, width = 0; // in drawing units
};

struct SetLine
{
    std::vector<Piece> pieces;
    double width = 0;  // without spaces at its end
    double height = 0; // of its tallest letters
};

class LineSetter
{
public:
    LineSetter(const Paragraphs &paragraphs, const drawing::Database &database, const TextMetrics &metrics)
        : m_paragraphs(paragraphs), m_styleFont(fontOf(database, paragraphs.style)), m_metrics(metrics)
    {
    }

    std::vector<SetLine> lines()
    {
        for (const std::vector<Run> &runs : paragraphsOf(m_paragraphs.string, m_paragraphs.height)) {
            beginLine(runs.empty() ? m_paragraphs.height : runs.front().height);
            for (const Run &run : runs)
                set(run);
        }
        return std::move(m_lines);
    }

private:
    void beginLine(double height)
    {
        m_lines.emplace_back().height = height;
        m_x = 0;
    }
    double widthOf(const Run &run, std::u16string_view text) const
    {
        return m_metrics.measure(run.font ? *run.font : m_styleFont, text).advance * run.height * run.widthFactor;
    }
    // Words with the spaces before them, so that the spaces at a line's end go with the word that did not fit.
    void set(const Run &run)
    {
        std::u16string_view rest = run.text;
        while (!rest.empty()) {
            const std::size_t word = std::min(rest.find_first_not_of(u' '), rest.size());
            const std::size_t end = std::min(rest.find(u' ', word), rest.size());
            place(run, rest.substr(0, end), rest.substr(word, end - word));
            rest.remove_prefix(end);
        }
    }
    void place(const Run &run, std::u16string_view text, std::u16string_view word)
    {
        const bool breaks = m_paragraphs.width > 0 && m_x > 0 && !word.empty() && text.size() > word.size() &&
                            m_x + widthOf(run, text) > m_paragraphs.width;
        if (breaks)
            beginLine(run.height);
        SetLine &line = m_lines.back();
        Piece piece{run, m_x, widthOf(run, breaks ? word : text)};
        piece.run.text = breaks ? word : text;
        m_x += piece.width;
        if (!word.empty())
            line.width = m_x;
        line.height = std::max(line.height, run.height);
        line.pieces.push_back(std::move(piece));
    }

    const Paragraphs &m_paragraphs;
    Font m_styleFont;
    const TextMetrics &m_metrics;
    std::vector<SetLine> m_lines;
    double m_x = 0;
};

// From the base line before to that of the line; of the first from the top.
double advanceTo(const SetLine &line, bool isFirst, const Paragraphs &paragraphs)
{
    constexpr double Single = 5.0 / 3;
    if (isFirst)
        return line.height;
    return Single * paragraphs.lineSpacing * (paragraphs.isExactSpacing ? paragraphs.height : line.height);
}

Text textOf(const Piece &piece, const Paragraphs &paragraphs, double x, double y)
{
    Text text;
    text.string = piece.run.text;
    text.font = piece.run.font;
    text.style = paragraphs.style;
    text.insertion = paragraphs.insertion + paragraphs.right * (x + piece.x) + paragraphs.up * y;
    text.right = paragraphs.right * (piece.run.height * piece.run.widthFactor);
    text.up = (paragraphs.up + paragraphs.right * std::tan(radians(piece.run.oblique))) * piece.run.height;
    return text;
}

} // namespace

std::vector<Text> linesOf(const Paragraphs &paragraphs, const drawing::Database &database, const TextMetrics &metrics)
{
    const std::vector<SetLine> lines = LineSetter(paragraphs, database, metrics).lines();
    double total = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
        total += advanceTo(lines[i], i == 0, paragraphs);

    // Attachments count from the top left corner in rows of three. The bottom is the last base line.
    const double across = (paragraphs.attachment - 1) % 3 / 2.0, down = (paragraphs.attachment - 1) / 3 / 2.0;
    std::vector<Text> texts;
    double y = total * down;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        y -= advanceTo(lines[i], i == 0, paragraphs);
        for (const Piece &piece : lines[i].pieces)
            texts.push_back(textOf(piece, paragraphs, -lines[i].width * across, y));
    }
    return texts;
}

} // namespace geometry
