#pragma once

#include "data/workbook/damagedfile.h"
#include <QByteArrayView>
#include <QtEndian>

/// Takes little-endian numbers out of bytes, one after another. DamagedFile behind their end.
class ByteReader
{
public:
    explicit ByteReader(QByteArrayView bytes, qsizetype position = 0) : m_bytes(bytes), m_position(position) {}

    qsizetype left() const { return m_bytes.size() - m_position; }
    quint8 u8() { return take<quint8>(); }
    quint16 u16() { return take<quint16>(); }
    quint32 u32() { return take<quint32>(); }
    double f64() { return std::bit_cast<double>(take<quint64>()); }
    QByteArrayView bytes(qsizetype count)
    {
        if (count < 0 || left() < count)
            throw DamagedFile();
        m_position += count;
        return m_bytes.sliced(m_position - count, count);
    }
    void skip(qsizetype count) { bytes(count); }

private:
    template <class Number> Number take() { return qFromLittleEndian<Number>(bytes(sizeof(Number)).data()); }

    QByteArrayView m_bytes;
    qsizetype m_position;
};
