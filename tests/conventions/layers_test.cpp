#include "tests/support/datafile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

/// A folder of the architecture page's table, and what it may include from besides itself.
struct Layer
{
    QString folder;
    QSet<QString> mayUse;
};

/// The rows of that table, from the bottom up: a folder may use those it stands on and, unless it says "only", those
/// that they may use.
const QList<Layer> &layers()
{
    static const QList<Layer> all = [] {
        static const QRegularExpression row("^\\| `([a-z/]+)` \\| ([^|]*) \\| [^|]+ \\|$"), name("`([a-z/]+)`");
        QList<Layer> all;
        for (const QString &line : linesOf("../docs/architecture.md")) {
            const auto match = row.match(line);
            if (!match.hasMatch())
                continue;
            Layer layer{match.captured(1), {}};
            for (const auto &below : name.globalMatch(match.captured(2))) {
                const auto found = std::find_if(
                    all.begin(), all.end(), [&below](const Layer &other) { return other.folder == below.captured(1); });
                if (found == all.end())
                    throw std::runtime_error("stands on no folder above it: " + line.toStdString());
                layer.mayUse += found->folder;
                if (!match.captured(2).startsWith("only"))
                    layer.mayUse += found->mayUse;
            }
            all += layer;
        }
        return all;
    }();
    return all;
}

/// The innermost of them that a path lies in; empty for a file that is none of ours.
QString folderOf(const QString &path)
{
    QString innermost;
    for (const Layer &layer : layers()) {
        if (path.startsWith(layer.folder + '/') && layer.folder.size() > innermost.size())
            innermost = layer.folder;
    }
    return innermost;
}

QStringList sourcesIn(const QString &folder)
{
    QStringList files;
    const QDir root(QStringLiteral(TAMRICK_TEST_DATA "/.."));
    QDirIterator it(root.filePath(folder), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << root.relativeFilePath(it.next());
    return files;
}

QString contentOf(const QString &path)
{
    QFile file(TAMRICK_TEST_DATA "/../" + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QStringList includesOf(const QString &path)
{
    static const QRegularExpression include(R"re(^\s*#include "([^"]+)")re", QRegularExpression::MultilineOption);
    QStringList included;
    for (const auto &match : include.globalMatch(contentOf(path)))
        included += match.captured(1);
    return included;
}

} // namespace

TEST(Conventions, EachFolderIncludesOnlyFromTheFoldersItStandsOn)
{
    ASSERT_GT(layers().size(), 25);
    for (const Layer &layer : layers()) {
        const QStringList files = sourcesIn(layer.folder);
        EXPECT_FALSE(files.isEmpty()) << layer.folder.toStdString();
        for (const QString &path : files) {
            if (folderOf(path) != layer.folder)
                continue; // of a row of its own
            for (const QString &included : includesOf(path)) {
                const QString target = folderOf(included);
                EXPECT_TRUE(target.isEmpty() || target == layer.folder || layer.mayUse.contains(target))
                    << path.toStdString() << " includes " << included.toStdString();
            }
        }
    }
}

/// A source and its header count as one. What nothing includes that is left, and what includes nothing that is left, is
/// in no circle.
TEST(Conventions, NoFilesIncludeEachOtherButTheOrderFormAndItsNavigator)
{
    QHash<QString, QSet<QString>> includes;
    const auto unit = [](const QString &path) { return path.section('.', 0, 0); };
    for (const Layer &layer : layers()) {
        for (const QString &path : sourcesIn(layer.folder)) {
            for (const QString &included : includesOf(path))
                includes[unit(path)] += unit(included);
        }
    }
    for (qsizetype before = -1; before != includes.size();) {
        before = includes.size();
        QSet<QString> named;
        for (auto it = includes.begin(); it != includes.end(); ++it) {
            it->removeIf([&](const QString &other) { return other == it.key() || !includes.contains(other); });
            named += *it;
        }
        includes.removeIf([&](const auto &it) { return it.value().isEmpty() || !named.contains(it.key()); });
    }
    QStringList left = includes.keys();
    left.sort();
    EXPECT_EQ(left.join(' ').toStdString(), "orders/frmorderentry orders/frmordernavigator");
}

TEST(Conventions, NoFolderKnowsWhatIsNotItsBusiness)
{
    QStringList above;
    for (const Layer &layer : layers()) {
        if (!layer.folder.startsWith("data/") && layer.folder != "tools")
            above += layer.folder;
    }
    const struct
    {
        const char *what;
        QStringList folders;
        QRegularExpression foreign;
    } rows[] = {
        {"a widget",
         {"data", "tools"},
         QRegularExpression(
             R"re(#include <(?!QCoreApplication>)Q\w*(Widget|Dialog|Painter|Application|Window|Font|Gui))re")},
        {"which engine is underneath", above, QRegularExpression(R"re(sqlite3\.h|data/engines/)re")},
        {"an engine but through its interface",
         {"data/dao", "data/engine", "data/jetsql", "data/schema"},
         QRegularExpression(R"re(sqlite3|libpq|\bPQ\w+\(|#include "data/engines/(?!engines\.h"))re")},
    };
    for (const auto &row : rows) {
        for (const QString &folder : row.folders) {
            for (const QString &path : sourcesIn(folder)) {
                const auto match = row.foreign.match(contentOf(path));
                EXPECT_FALSE(match.hasMatch())
                    << path.toStdString() << " knows " << row.what << ": " << match.captured().toStdString();
            }
        }
    }
}
