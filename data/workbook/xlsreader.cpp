#include "data/workbook/compoundfile.h"
#include "data/workbook/limits.h"
#include "data/workbook/numberformat.h"
#include "data/workbook/readers.h"
#include "data/workbook/xlsrecords.h"
#include <cmath>

// Files of the spreadsheet programs up to 2003, those of 1995 included.

namespace {

/// Those of a workbook's records that are read, by their numbers in the file.
enum Record {
    Formula = 0x06,
    End = 0x0A,
    From1904 = 0x22,
    Password = 0x2F,
    SheetPlace = 0x85,
    PackedNumbers = 0xBD,
    FormattedText = 0xD6,
    CellFormat = 0xE0,
    CommonTexts = 0xFC,
    CommonText = 0xFD,
    Number = 0x203,
    Text = 0x204,
    BooleanOrError = 0x205,
    FormulaText = 0x207,
    PackedNumber = 0x27E,
    NumberFormat = 0x41E,
    Begin = 0x809
};

constexpr int VersionOf1997 = 0x600;
constexpr int Worksheet = 0;
constexpr int MacroSheet = 1;
constexpr int CodeModule = 6;
constexpr qsizetype SmallestRecord = 4;

/// A number in four bytes: the upper part of a floating-point one or a whole one, and either as hundredths.
double unpacked(quint32 packed)
{
    const double number = packed & 2 ? double(qint32(packed) >> 2) : std::bit_cast<double>(quint64(packed & ~3u) << 32);
    return packed & 1 ? number / 100 : number;
}

class XlsReader
{
public:
    explicit XlsReader(QByteArray stream) : m_stream(std::move(stream)) {}

    std::vector<Sheet> read()
    {
        readGlobals();
        std::vector<Sheet> sheets;
        // More records than the stream has room for: sheets that lie in one another are read again and again.
        m_recordsLeft = m_stream.size() / SmallestRecord;
        for (const auto &[place, type] : m_sheets) {
            // A chart's numbers are copies.
            if (type == Worksheet || type == MacroSheet)
                readSheet(place);
            sheets.push_back(std::exchange(m_sheet, {}));
        }
        return sheets;
    }

private:
    QString text(XlsRecords &record, int length) const
    {
        return m_isOf1997 ? record.text(length) : record.byteText(length);
    }

    void readGlobals()
    {
        XlsRecords record(m_stream);
        if (!record.next() || record.type() != Begin)
            throw DamagedFile();
        m_isOf1997 = record.u16() == VersionOf1997;
        QHash<int, NumberKind> kinds; // of the formats that the file defines itself, by their numbers
        for (goOn(record); record.type() != End; goOn(record)) {
            switch (record.type()) {
            case Password:
                throw DamagedFile(); // what follows is encrypted
            case From1904:
                m_firstDay = record.u16() == 1 ? FirstDayOf1904 : 0;
                break;
            case NumberFormat: {
                const int number = record.u16();
                const int length = m_isOf1997 ? record.u16() : record.u8();
                kinds[number] = kindOfNumberFormat(number, text(record, length));
                break;
            }
            case CellFormat: {
                record.skip(2);
                const int number = record.u16();
                m_kinds.push_back(kinds.value(number, kindOfNumberFormat(number, {})));
                break;
            }
            case SheetPlace: {
                // Sheets come in the order of their tabs, wherever in the stream they begin.
                const quint32 place = record.u32();
                record.skip(1);
                // Hidden or not, which stands before the type, a sheet counts.
                if (const int type = record.u8(); type != CodeModule)
                    m_sheets.emplace_back(place, type);
                break;
            }
            case CommonTexts:
                readCommonTexts(record);
                break;
            }
        }
    }

    void readCommonTexts(XlsRecords &record)
    {
        record.skip(4);
        // Behind the number of their uses stands that of the different ones.
        for (quint32 count = record.u32(); count > 0; --count)
            m_texts += record.text(record.u16());
    }

    /// A stream ends with a record that says so.
    static void goOn(XlsRecords &record)
    {
        if (!record.next())
            throw DamagedFile();
    }

    void readSheet(qsizetype place)
    {
        XlsRecords record(m_stream, place);
        int depth = 0; // an embedded chart stands between a begin and an end of its own
        do {
            goOn(record);
            if (--m_recordsLeft < 0 || (depth == 0 && record.type() != Begin))
                throw DamagedFile();
            if (record.type() == Begin)
                ++depth;
            else if (record.type() == End)
                --depth;
            else if (depth == 1)
                readCell(record);
        } while (depth > 0);
    }

    void readCell(XlsRecords &record)
    {
        if (record.type() == FormulaText) {
            const int length = record.u16();
            set(m_formulaRow, m_formulaColumn, text(record, length));
            return;
        }
        static constexpr std::array cells{Formula, PackedNumbers, FormattedText,  CommonText,
                                          Number,  Text,          BooleanOrError, PackedNumber};
        if (std::find(cells.begin(), cells.end(), record.type()) == cells.end())
            return;
        // Counted from 0 in the file and from 1 by everybody else.
        const int row = record.u16() + 1;
        int column = record.u16() + 1;
        if (record.type() == PackedNumbers) {
            // What is left behind the cells is the number of the last column.
            for (; record.left() >= 6; ++column) {
                const int format = record.u16();
                set(row, column, value(unpacked(record.u32()), format));
            }
            return;
        }
        readCell(record, row, column, record.u16());
    }

    void readCell(XlsRecords &record, int row, int column, int format)
    {
        switch (record.type()) {
        case Number:
            set(row, column, value(record.f64(), format));
            break;
        case PackedNumber:
            set(row, column, value(unpacked(record.u32()), format));
            break;
        case CommonText: {
            const quint32 index = record.u32();
            if (index >= quint32(m_texts.size()))
                throw DamagedFile();
            set(row, column, m_texts[index]);
            break;
        }
        case Text:
        case FormattedText: {
            const int length = record.u16();
            set(row, column, text(record, length));
            break;
        }
        case BooleanOrError: {
            const bool isTrue = record.u8() != 0;
            setBooleanOrError(row, column, isTrue, record.u8() != 0);
            break;
        }
        case Formula:
            readResult(record, row, column, format);
            break;
        }
    }

    /// A formula's result: a number, or with its last two bytes set something else.
    void readResult(XlsRecords &record, int row, int column, int format)
    {
        const double number = record.f64();
        const auto bits = std::bit_cast<quint64>(number);
        if (bits >> 48 != 0xFFFF) {
            set(row, column, value(number, format));
            return;
        }
        switch (bits & 0xFF) {
        case 0: // a text, in a record of its own
            // The record of the text says nothing about its cell.
            m_formulaRow = row;
            m_formulaColumn = column;
            break;
        case 1:
        case 2:
            setBooleanOrError(row, column, (bits >> 16 & 0xFF) != 0, (bits & 0xFF) == 2);
            break;
        }
    }

    void setBooleanOrError(int row, int column, bool isTrue, bool isError)
    {
        if (isError)
            set(row, column, {}, true);
        else
            set(row, column, isTrue);
    }

    void set(int row, int column, const Value &value, bool isError = false)
    {
        if (row < 1 || column > WorkbookLimits::XlsColumns)
            throw DamagedFile();
        m_sheet.set(row, column, {value, isError});
    }

    Value value(double number, int format) const
    {
        if (!std::isfinite(number))
            throw DamagedFile();
        return numberValue(number, format < m_kinds.size() ? m_kinds[format] : NumberKind::Plain, m_firstDay);
    }

    QByteArray m_stream;
    bool m_isOf1997 = true;
    double m_firstDay = 0;
    QStringList m_texts;
    QList<NumberKind> m_kinds;                     ///< by cell format
    std::vector<std::pair<quint32, int>> m_sheets; ///< where each begins, and its type
    Sheet m_sheet;                                 ///< the one being read
    qsizetype m_recordsLeft = 0;
    int m_formulaRow = 0;
    int m_formulaColumn = 0;
};

} // namespace

std::vector<Sheet> readXls(const QByteArray &content)
{
    const CompoundFile compound(content);
    auto stream = compound.stream("Workbook");
    if (!stream)
        // The name before 1997.
        stream = compound.stream("Book");
    if (!stream)
        throw DamagedFile();
    return XlsReader(std::move(*stream)).read();
}
