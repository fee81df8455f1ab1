#include "reportengine/pages/textmetrics.h"

#include <QFontMetricsF>
#include <QHash>
#include <array>

namespace {

constexpr int MeasuredSize = 1000; ///< pixels; widths grow with the size in proportion

QFont plainFont(int pixelSize, bool bold, bool italic)
{
    QFont font;
    // Letters of the first two are equally wide, so that lines break alike where either is at hand.
    font.setFamilies({"Liberation Sans", "Arial", "Helvetica", "DejaVu Sans"});
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    font.setItalic(italic);
    // Without kerning and hinting a text is as wide as the sum of its characters, at every size and on every machine.
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::ForceOutline);
    return font;
}

/// The widths of one face's characters, as parts of the font size.
class Face
{
public:
    Face(bool bold, bool italic) : m_metrics(plainFont(MeasuredSize, bold, italic))
    {
        for (int c = 0; c < int(m_common.size()); ++c)
            m_common[c] = m_metrics.horizontalAdvance(QChar(c)) / MeasuredSize;
    }

    double width(const QString &text) const
    {
        double sum = 0;
        for (const QChar c : text) {
            // Beyond the common letters characters may combine, so the whole text is shaped.
            if (c.unicode() >= m_common.size())
                return m_metrics.horizontalAdvance(text) / MeasuredSize;
            sum += m_common[c.unicode()];
        }
        return sum;
    }
    double ascent() const { return m_metrics.ascent() / MeasuredSize; }
    double descent() const { return m_metrics.descent() / MeasuredSize; }

private:
    QFontMetricsF m_metrics;
    std::array<double, 0x250> m_common;
};

const Face &face(const TextStyle &style)
{
    static const std::array<Face, 4> faces{Face(false, false), Face(false, true), Face(true, false), Face(true, true)};
    return faces[style.bold * 2 + style.italic];
}

} // namespace

const QFont &TextMetrics::font(const TextStyle &style)
{
    static QHash<int, QFont> fonts;
    const int size = qRound(style.size * UnitsPerPoint);
    const int key = size * 4 + style.bold * 2 + style.italic;
    auto found = fonts.find(key);
    if (found == fonts.end())
        found = fonts.insert(key, plainFont(size, style.bold, style.italic));
    return *found;
}

double TextMetrics::width(const QString &text, const TextStyle &style)
{
    return face(style).width(text) * style.size;
}

double TextMetrics::ascent(const TextStyle &style)
{
    return face(style).ascent() * style.size;
}

namespace {

/// As much of the text as fits before an ellipsis.
QString withEllipsis(const QString &text, const TextStyle &style, double width)
{
    qsizetype low = 0;
    qsizetype high = text.size();
    // By halves, since no letter makes a text narrower.
    while (low < high) {
        const qsizetype middle = (low + high + 1) / 2;
        if (TextMetrics::width(text.left(middle) + TextMetrics::Ellipsis, style) <= width)
            low = middle;
        else
            high = middle - 1;
    }
    // Never half of a character that takes two code units.
    if (low > 0 && text[low - 1].isHighSurrogate())
        --low;
    return text.left(low).trimmed() + TextMetrics::Ellipsis;
}

/// Whether a line may end before that character: at a blank, or behind a hyphen inside a word.
bool breaksAt(const QString &text, qsizetype at)
{
    return text[at].isSpace() || (at > 1 && text[at - 1] == u'-' && !text[at - 2].isSpace());
}

/// How many characters of the text go on one line: up to the last break that fits, or as many as fit.
qsizetype lineLength(const QString &text, const TextStyle &style, double width)
{
    qsizetype fitting = 0;
    for (qsizetype end = 1; end <= text.size(); ++end) {
        const bool wordEnds = end == text.size() || breaksAt(text, end);
        if (wordEnds && TextMetrics::width(text.left(end), style) > width)
            break;
        if (wordEnds)
            fitting = end;
    }
    if (fitting > 0)
        return fitting;
    // A word wider than the line is cut where the line ends.
    while (fitting < text.size() && TextMetrics::width(text.left(fitting + 1), style) <= width)
        ++fitting;
    // One letter at least, or a place narrower than a letter would never come to the text's end.
    return std::max<qsizetype>(fitting, 1);
}

} // namespace

QString TextMetrics::shortened(const QString &text, const TextStyle &style, double width)
{
    return TextMetrics::width(text, style) <= width ? text : withEllipsis(text, style, width);
}

QStringList TextMetrics::wrapped(const QString &text, const TextStyle &style, double width, int maxLines)
{
    QStringList lines;
    for (QString rest : text.split('\n')) {
        // Once at least: an empty line of the text's own stays one.
        do {
            if (lines.size() == maxLines) {
                lines.last() = withEllipsis(lines.last(), style, width);
                return lines;
            }
            const qsizetype length =
                TextMetrics::width(rest, style) <= width ? rest.size() : lineLength(rest, style, width);
            lines.append(rest.left(length));
            rest = rest.mid(length).trimmed();
        } while (!rest.isEmpty());
    }
    return lines;
}
