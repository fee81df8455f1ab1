#include "toolkit/controls/columnwidths.h"

#include "toolkit/controls/flexgridmodel.h"
#include <QFontMetricsF>
#include <QSet>
#include <array>

namespace {
constexpr int Padding = 16;

/// Widths of the ASCII characters; any other is taken as wide as the widest of them.
class CharacterWidths
{
public:
    explicit CharacterWidths(const QFont &font)
    {
        const QFontMetricsF metrics(font);
        for (int c = 0; c < int(m_widths.size()); ++c)
            m_widths[c] = c < ' ' ? 0 : float(metrics.horizontalAdvance(QChar(c)));
        m_other = m_widths['W'];
    }
    float of(uchar byte) const
    {
        if (byte < 0x80)
            return m_widths[byte];
        return byte >= 0xC0 ? m_other : 0; // a character beyond ASCII counts at its first byte
    }
    float of(QByteArrayView text) const
    {
        float width = 0;
        for (const char c : text)
            width += of(uchar(c));
        return width;
    }

private:
    std::array<float, 128> m_widths;
    float m_other = 0;
};

/// A column with a format: the painted text is wider than the raw one, and printing every cell by the format would
/// take long. Texts alike in length, place of the point and sign are painted alike wide, digits being one width.
class FormattedColumn
{
public:
    explicit FormattedColumn(int col) : m_col(col) {}

    float width(const FlexGridModel &model, int row, QByteArrayView raw, const CharacterWidths &widths)
    {
        const auto kind = (raw.size() << 16) + ((raw.indexOf('.') + 1) << 1) + raw.startsWith('-');
        if (m_known.contains(kind))
            return 0;
        m_known.insert(kind);
        return widths.of(model.painted(row, m_col).toUtf8());
    }

private:
    int m_col;
    QSet<qsizetype> m_known;
};
} // namespace

std::vector<int> columnWidths(const FlexGridModel &model, const QFont &cellFont, const QFont &headerFont)
{
    const CharacterWidths cellWidths(cellFont);
    const CharacterWidths headerWidths(headerFont);
    const int cols = model.columnCount();
    std::vector<float> widest(cols, 0);
    std::vector<std::optional<FormattedColumn>> formatted(cols);
    for (int col = 0; col < cols; ++col)
        if (!model.format(col).isEmpty())
            formatted[col].emplace(col);

    for (int row = 0; row < model.gridRows(); ++row) {
        const QByteArrayView bytes(model.rowBytes(row));
        const CharacterWidths &widths = row == 0 ? headerWidths : cellWidths;
        qsizetype start = 0;
        for (int col = 0; col < cols && start <= bytes.size(); ++col) {
            qsizetype end = bytes.indexOf(FlexGridModel::Separator, start);
            if (end < 0)
                end = bytes.size();
            const QByteArrayView cell = bytes.sliced(start, end - start);
            const float width =
                formatted[col] && row > 0 ? formatted[col]->width(model, row, cell, widths) : widths.of(cell);
            widest[col] = std::max(widest[col], width);
            start = end + 1;
        }
    }
    std::vector<int> result;
    for (const float width : widest)
        result.push_back(int(std::ceil(width)) + Padding);
    return result;
}
