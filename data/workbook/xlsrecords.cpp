#include "data/workbook/xlsrecords.h"

namespace {

constexpr int Continuation = 0x3C;

/// Flags in front of a text.
constexpr int TwoByteLetters = 1;
constexpr int Pronunciation = 4;
constexpr int Formatting = 8;

} // namespace

bool XlsRecords::startsContinuation(ByteReader bytes)
{
    return bytes.left() >= 4 && bytes.u16() == Continuation;
}

bool XlsRecords::next()
{
    m_pieces.clear();
    m_piece = 0;
    if (m_bytes.left() < 4)
        return false;
    m_type = m_bytes.u16();
    m_pieces.emplace_back(m_bytes.bytes(m_bytes.u16()));
    // A record holds 8 kB at most; what is longer goes on in records of its own kind.
    while (startsContinuation(m_bytes)) {
        m_bytes.skip(2);
        m_pieces.emplace_back(m_bytes.bytes(m_bytes.u16()));
    }
    return true;
}

ByteReader &XlsRecords::piece()
{
    while (m_pieces[m_piece].left() == 0 && m_piece + 1 < m_pieces.size())
        ++m_piece;
    return m_pieces[m_piece];
}

qsizetype XlsRecords::left()
{
    return piece().left();
}

void XlsRecords::skip(qsizetype count)
{
    while (count > 0) {
        ByteReader &bytes = piece();
        const auto part = std::min(count, std::max<qsizetype>(1, bytes.left()));
        bytes.skip(part);
        count -= part;
    }
}

QString XlsRecords::text(int length)
{
    int flags = u8();
    const int formats = flags & Formatting ? u16() : 0;
    const quint32 pronunciation = flags & Pronunciation ? u32() : 0;
    QString text;
    while (text.size() < length) {
        // A text that goes on in the next record begins there with its flags anew.
        if (m_pieces[m_piece].left() == 0)
            flags = u8();
        text += QChar(flags & TwoByteLetters ? u16() : u8());
    }
    // What follows the letters tells only how they look and sound.
    skip(formats * 4 + qsizetype(pronunciation));
    return text;
}

QString XlsRecords::byteText(int length)
{
    return QString::fromLatin1(piece().bytes(length));
}
