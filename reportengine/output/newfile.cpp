#include "reportengine/output/newfile.h"

#include <QUuid>
#include <cstdio>

NewFile::NewFile(const QString &path)
    : m_path(path), m_file(path + "." + QUuid::createUuid().toString(QUuid::Id128).left(8) + ".part")
{
}

NewFile::~NewFile()
{
    m_file.close();
    if (m_file.exists())
        m_file.remove();
}

bool NewFile::open()
{
    return m_file.open(QIODevice::ReadWrite | QIODevice::Truncate);
}

bool NewFile::commit()
{
    const bool written = !m_file.isOpen() || (m_file.flush() && m_file.error() == QFile::NoError);
    m_file.close();
    // One step, so that the old file or the new one is there at any moment.
    return written &&
           std::rename(QFile::encodeName(m_file.fileName()).constData(), QFile::encodeName(m_path).constData()) == 0;
}
