#include "tools/newdatabase.h"

#include "data/dao/createdatabase.h"
#include "data/engines/engines.h"
#include "data/schema/schema.h"

NewDatabase::NewDatabase(const QString &name, const QByteArray &salt) : m_name(name)
{
    if (engines::isFile(name)) {
        m_name = m_file.emplace(name).path();
        QFile::remove(m_name); // the empty one, which only took the name: the database is made anew
    }
    m_made = createDatabase(m_name, Schema::Password, salt);
}

NewDatabase::~NewDatabase()
{
    // A file that was not published goes with its part.
    if (!m_published && !m_file)
        discardDatabase(m_name, m_made);
}

void NewDatabase::publish()
{
    if (m_file)
        m_file->publish();
    m_published = true;
}
