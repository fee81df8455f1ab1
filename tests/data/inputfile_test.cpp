#include "data/values/inputfile.h"
#include "tests/support/printers.h"
#include <QTemporaryDir>
#include <sys/stat.h>

namespace {

class InputFileTest : public testing::Test
{
protected:
    QString fileWith(const QByteArray &content)
    {
        QFile file(m_folder.filePath("config.txt"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    /// All fields up to the error that ends them, joined by "|".
    QString fieldsOf(const QByteArray &content)
    {
        InputFile file(fileWith(content));
        QStringList fields;
        EXPECT_EQ(errorNumberOf([&] {
                      for (;;)
                          fields += file.readField();
                  }),
                  62);
        return fields.join('|');
    }

    QTemporaryDir m_folder;
};

TEST_F(InputFileTest, FieldsStandBetweenCommasAndLineEnds)
{
    const struct
    {
        const char *content, *fields;
    } rows[] = {
        {"Settings\r\nPath,C:\\d.mdb\r\nSec,1.5\r\n", "Settings|Path|C:\\d.mdb|Sec|1.5"},
        {"a\nb\rc\r\nd", "a|b|c|d"},
        {"  a b ,\t c \n", "a b|c"},
        {"\"Settings, v1\"\n\"Path\" , \"C:\\a,b.mdb\" \nX", "Settings, v1|Path|C:\\a,b.mdb|X"},
        {"\" kept \",x", " kept |x"},
        {"\"two\nlines\",x", "two\nlines|x"},
        {"\"1,2\"\"X\"", "1,2|X"},
        {"5\" pipe,x", "5\" pipe|x"},
        {"Settings\n\nPath", "Settings||Path"},
        {"a,\nb", "a||b"},
        {"a,", "a"},
        {"\"open to the end", "open to the end"},
        {"#TRUE#,#NULL#,#2011-03-30#", "#TRUE#|#NULL#|#2011-03-30#"},
        {"a,b\x1A,c", "a|b"},
        {"\xEF\xBB\xBFM\xC3\xBCller,x", "Müller|x"},
        {"M\xFCller,x", "Müller|x"},
        {"", ""},
        {"  \t", ""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(fieldsOf(row.content), QString::fromUtf8(row.fields)) << row.content;
}

TEST_F(InputFileTest, AFileThatCannotBeReadIsAnErrorOfItsKind)
{
    EXPECT_EQ(errorNumberOf([&] { InputFile(m_folder.filePath("missing.txt")); }), 53);
    EXPECT_EQ(errorNumberOf([&] { InputFile(m_folder.filePath("nowhere/config.txt")); }), 76);
    const QString pipe = m_folder.filePath("pipe");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString &path : {m_folder.path(), pipe, QString("/dev/zero"), fileWith(QByteArray(2'000'000, 'x'))})
        EXPECT_EQ(errorNumberOf([&] { InputFile file(path); }), 75) << path.toStdString();
}

} // namespace
