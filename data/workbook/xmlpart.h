#pragma once

#include <QIODevice>
#include <QXmlStreamReader>
#include <optional>

/// Goes through an XML part of a workbook. DamagedFile for whatever is no sound part: malformed or cut off, or with
/// elements nested deeper, attributes more and texts longer than any spreadsheet program writes.
class XmlPart
{
public:
    explicit XmlPart(const QByteArray &content);

    /// Goes on to the start of the next element, whatever it stands in. False at the end of the part.
    bool nextElement();
    /// Goes on to the start of the next child of the element at hand, or of the part. False at the element's end.
    bool nextChild();
    /// Goes to the end of the element at hand.
    void skip();
    /// The text of the element at hand, which has no children, or has them passed over. Goes to its end.
    QString text();
    /// Goes on to the next start, end or text; the end of the part is none.
    QXmlStreamReader::TokenType next();
    QStringView characters() const { return m_xml.text(); }

    /// The element's name as written ("table:table"), and without its prefix.
    QStringView name() const { return m_xml.qualifiedName(); }
    QStringView localName() const;

    /// Nothing without such an attribute. Its name is as written.
    std::optional<QString> attribute(const char *name) const;
    QString attributeText(const char *name) const { return attribute(name).value_or(QString()); }
    /// The first attribute of that local name that has a prefix.
    QString prefixedAttribute(const char *localName) const;
    /// DamagedFile for an attribute that is no whole number within the limits.
    int number(const char *name, int least, int most, int absent) const;

private:
    /// Hands out the part, but between two tokens no more than a token may have.
    class Source : public QIODevice
    {
    public:
        explicit Source(const QByteArray &content) : m_content(content) { open(ReadOnly | Unbuffered); }
        void grantToken();
        bool isSequential() const override { return true; }

    protected:
        qint64 readData(char *data, qint64 most) override;
        qint64 writeData(const char *, qint64) override { return -1; }

    private:
        QByteArray m_content;
        qsizetype m_at = 0, m_granted = 0;
    };

    Source m_source;
    QXmlStreamReader m_xml;
    int m_depth = 0;
};

/// A finite number, written as such. DamagedFile for anything else.
double finiteNumber(const QString &text);
