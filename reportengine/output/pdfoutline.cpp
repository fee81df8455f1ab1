#include "reportengine/output/pdfoutline.h"

#include <QIODevice>
#include <QRegularExpression>

namespace {

/// The parts of a PDF file an added revision has to know.
class PdfFile
{
public:
    explicit PdfFile(QIODevice &file) : m_file(file) {}

    bool read()
    {
        // The last table of objects is told of at the end of the file. Anything that is not as Qt writes it is left
        // without an outline.
        const QByteArray tail = bytesAt(std::max<qint64>(0, m_file.size() - 2048), 2048);
        m_previous = numberBehind(tail.mid(tail.lastIndexOf("startxref")), "startxref");
        const qsizetype trailer = tail.lastIndexOf("trailer");
        if (m_previous <= 0 || trailer < 0 || !bytesAt(m_previous, 4).startsWith("xref"))
            return false;
        m_trailer = tail.mid(trailer, tail.indexOf(">>", trailer) - trailer);
        m_size = int(numberBehind(m_trailer, "/Size"));
        m_root = int(numberBehind(m_trailer, "/Root"));
        m_catalog = object(m_root);
        if (m_size <= 0 || m_catalog.isEmpty() || m_catalog.contains("/Outlines"))
            return false;
        return readPages(int(numberBehind(m_catalog, "/Pages")));
    }

    qint64 previous() const { return m_previous; }
    int size() const { return m_size; }
    int root() const { return m_root; }
    /// The info entry of the trailer, to be kept.
    int info() const { return int(numberBehind(m_trailer, "/Info")); }
    /// The catalogue's entries, without the brackets around them.
    QByteArray catalogEntries() const
    {
        const qsizetype begin = m_catalog.indexOf("<<") + 2;
        return m_catalog.mid(begin, m_catalog.lastIndexOf(">>") - begin).trimmed();
    }
    const std::vector<int> &pages() const { return m_pages; }

private:
    QByteArray bytesAt(qint64 offset, qint64 length)
    {
        m_file.seek(offset);
        return m_file.read(length);
    }

    static qint64 numberBehind(const QByteArray &text, const char *key)
    {
        const QRegularExpression pattern(QRegularExpression::escape(key) + "\\s+(\\d+)");
        return pattern.match(QString::fromLatin1(text)).captured(1).toLongLong();
    }

    /// The text of an object, found through the cross-reference table: one section from 0, lines of 20 bytes.
    QByteArray object(int number)
    {
        const QByteArray head = bytesAt(m_previous, 64);
        const QRegularExpressionMatch match =
            QRegularExpression("^xref\\s+0 (\\d+)\\s*\\n").match(QString::fromLatin1(head));
        if (!match.hasMatch() || number <= 0 || number >= match.captured(1).toInt())
            return {};
        const qint64 offset = bytesAt(m_previous + match.capturedLength() + 20ll * number, 10).toLongLong();
        QByteArray text;
        // Most objects are short; the list of a long report's pages is not.
        for (qint64 length = 4096; length < (1 << 28); length *= 8) {
            text = bytesAt(offset, length);
            const qsizetype end = text.indexOf("endobj");
            if (end >= 0)
                return text.left(end);
            if (text.size() < length)
                break;
        }
        return {};
    }

    bool readPages(int tree)
    {
        const QByteArray text = object(tree);
        const qsizetype kids = text.indexOf("/Kids");
        const qsizetype end = text.indexOf(']', kids);
        if (kids < 0 || end < 0)
            return false;
        for (const QByteArray &part : text.mid(kids, end - kids).split('R')) {
            const QList<QByteArray> words = part.simplified().split(' ');
            if (words.size() >= 2)
                m_pages.push_back(words[words.size() - 2].toInt());
        }
        // A tree of trees would be someone else's file.
        return !m_pages.empty() && object(m_pages[0]).contains("/Page") && !object(m_pages[0]).contains("/Kids");
    }

    QIODevice &m_file;
    qint64 m_previous = 0;
    int m_size = 0;
    int m_root = 0;
    QByteArray m_trailer;
    QByteArray m_catalog;
    std::vector<int> m_pages;
};

QByteArray reference(int number)
{
    return QByteArray::number(number) + " 0 R";
}

/// A text string in UTF-16 with its byte order mark, as hexadecimal digits.
QByteArray pdfText(const QString &text)
{
    QByteArray bytes("\xfe\xff");
    for (const QChar c : text) {
        bytes += char(c.unicode() >> 8);
        bytes += char(c.unicode() & 0xff);
    }
    return '<' + bytes.toHex() + '>';
}

/// How the entries hang together: index of each one's parent, neighbours and ends, -1 where there is none.
struct Links
{
    int parent = -1, previous = -1, next = -1, first = -1, last = -1, children = 0;
};

std::vector<Links> linked(const std::vector<PdfOutlineEntry> &entries, Links &root)
{
    std::vector<Links> links(entries.size());
    std::vector<int> path; // the entry last seen at each level
    for (int i = 0; i < int(entries.size()); ++i) {
        const int level = std::min(entries[i].level, int(path.size()));
        path.resize(level);
        links[i].parent = path.empty() ? -1 : path.back();
        Links &parent = path.empty() ? root : links[path.back()];
        links[i].previous = parent.last;
        if (parent.last >= 0)
            links[parent.last].next = i;
        else
            parent.first = i;
        parent.last = i;
        ++parent.children;
        path.push_back(i);
    }
    return links;
}

/// Writes objects behind the end of the file and, at last, the table of where they stand.
class Revision
{
public:
    Revision(QIODevice &file, const PdfFile &pdf) : m_file(file), m_pdf(pdf) { m_file.seek(m_file.size()); }

    void object(int number, const QByteArray &entries)
    {
        m_offsets.emplace_back(number, m_file.pos());
        m_file.write(QByteArray::number(number) + " 0 obj\n<<\n" + entries + "\n>>\nendobj\n");
    }

    void finish(int size)
    {
        const qint64 table = m_file.pos();
        QByteArray text("xref\n");
        std::sort(m_offsets.begin(), m_offsets.end());
        for (size_t i = 0; i < m_offsets.size();) {
            size_t end = i + 1;
            while (end < m_offsets.size() && m_offsets[end].first == m_offsets[end - 1].first + 1)
                ++end;
            text += QByteArray::number(m_offsets[i].first) + ' ' + QByteArray::number(int(end - i)) + '\n';
            for (; i < end; ++i)
                text += QByteArray::number(m_offsets[i].second).rightJustified(10, '0') + " 00000 n \n";
        }
        text += "trailer\n<<\n/Size " + QByteArray::number(size) + "\n/Root " + reference(m_pdf.root()) + "\n/Info " +
                reference(m_pdf.info()) + "\n/Prev " + QByteArray::number(m_pdf.previous()) + "\n>>\nstartxref\n" +
                QByteArray::number(table) + "\n%%EOF\n";
        m_file.write(text);
    }

private:
    QIODevice &m_file;
    const PdfFile &m_pdf;
    std::vector<std::pair<int, qint64>> m_offsets;
};

} // namespace

/// Qt writes no outlines. A PDF file may be added to: objects behind its end, and a table that names them and the
/// former one.
bool addPdfOutline(QIODevice &file, const std::vector<PdfOutlineEntry> &entries)
{
    PdfFile pdf(file);
    if (entries.empty() || !pdf.read())
        return false;
    Links top;
    const std::vector<Links> links = linked(entries, top);
    // New objects are numbered on from where the file ended.
    const int outlines = pdf.size();
    const auto entry = [&](const char *key, int index) {
        return index < 0 ? QByteArray() : '/' + QByteArray(key) + ' ' + reference(outlines + 1 + index) + '\n';
    };

    Revision revision(file, pdf);
    // The catalogue comes once more under its number, and readers go by the later one: they open with the outline
    // beside the whole first page.
    revision.object(pdf.root(), pdf.catalogEntries() + "\n/Outlines " + reference(outlines) +
                                    "\n/PageMode /UseOutlines\n/OpenAction [" + reference(pdf.pages()[0]) + " /Fit]");
    revision.object(outlines, "/Type /Outlines\n" + entry("First", top.first) + entry("Last", top.last) + "/Count " +
                                  QByteArray::number(top.children));
    for (int i = 0; i < int(entries.size()); ++i) {
        const Links &link = links[i];
        QByteArray text = "/Title " + pdfText(entries[i].title) + "\n/Dest [" +
                          reference(pdf.pages().at(entries[i].page)) + " /XYZ null null null]\n" +
                          (link.parent < 0 ? "/Parent " + reference(outlines) + '\n' : entry("Parent", link.parent)) +
                          entry("Prev", link.previous) + entry("Next", link.next) + entry("First", link.first) +
                          entry("Last", link.last);
        // Negative: the entry's own children stay folded.
        if (link.children > 0)
            text += "/Count " + QByteArray::number(-link.children) + '\n';
        revision.object(outlines + 1 + i, text);
    }
    revision.finish(outlines + 1 + int(entries.size()));
    return true;
}
