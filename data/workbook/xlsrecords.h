#pragma once

#include "data/workbook/bytereader.h"
#include <QString>
#include <vector>

/// The records of an .xls workbook's stream, one after another.
class XlsRecords
{
public:
    explicit XlsRecords(QByteArrayView stream, qsizetype position = 0) : m_bytes(stream, position) {}

    /// Goes to the next record. False at the end of the stream.
    bool next();
    int type() const { return m_type; }

    // What the record holds, in order. A long one is continued in records behind it, which count as its own.
    quint8 u8() { return piece().u8(); }
    quint16 u16() { return piece().u16(); }
    quint32 u32() { return piece().u32(); }
    double f64() { return piece().f64(); }
    qsizetype left();
    void skip(qsizetype count);
    /// A text of so many letters, with the flags in front that tell how they are stored.
    QString text(int length);
    /// The same in files of before 1997: a byte a letter.
    QString byteText(int length);

private:
    ByteReader &piece();
    static bool startsContinuation(ByteReader bytes);

    ByteReader m_bytes;
    int m_type = 0;
    std::vector<ByteReader> m_pieces;
    size_t m_piece = 0;
};
