#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

/// A folder that has an order of its own inside, and what it may include from besides itself.
struct Layer
{
    QString folder;
    QStringList mayUse;
};

/// The rows of the architecture page's table, from the bottom up.
const QList<Layer> &layers()
{
    static const QStringList values{"data/values"};
    static const QStringList jetsql = values + QStringList{"data/schema"};
    static const QStringList engine = jetsql + QStringList{"data/jetsql"};
    static const QStringList engines = engine + QStringList{"data/engine"};
    static const QStringList dao = engines + QStringList{"data/engines"};
    static const QStringList forms = dao + QStringList{"data/dao", "toolkit/controls"};
    static const QStringList toolkit = forms + QStringList{"toolkit/forms"};
    static const QStringList formula{"data/values", "reportengine/rows"};
    static const QStringList pages = formula + QStringList{"reportengine/formula"};
    static const QStringList report = pages + QStringList{"reportengine/pages", "data/dao"};
    static const QStringList output = toolkit + report + QStringList{"reportengine"};
    static const QStringList viewer = output + QStringList{"reportengine/output"};
    static const QStringList reports = viewer + QStringList{"reportengine/viewer", "reports/layouts", "data/workbook"};
    static const QStringList desk = toolkit + QStringList{"reports", "inventory"};
    static const QList<Layer> all{
        {"data/values", {}},
        {"data/schema", values},
        {"data/jetsql", jetsql},
        {"data/engine", engine},
        {"data/engines/sqlite", engines},
        {"data/engines/postgres", engines},
        {"data/engines", engines + QStringList{"data/engines/sqlite", "data/engines/postgres"}},
        {"data/dao", dao},
        {"data/workbook", values},
        {"toolkit/controls", values},
        {"toolkit/forms", forms},
        {"reportengine/rows", values + QStringList{"data/dao"}},
        {"reportengine/formula", formula},
        {"reportengine/pages", pages},
        {"reportengine", report},
        {"reportengine/output", output},
        {"reportengine/viewer", viewer},
        {"reports/layouts", output},
        {"reports", reports},
        {"reports/dialogs", reports + QStringList{"reports"}},
        {"master", toolkit},
        {"inventory", toolkit},
        {"orders", desk},
        {"shipping", desk + QStringList{"orders"}},
        {"billing", desk + QStringList{"orders"}},
        {"app", reports + desk + QStringList{"reports/dialogs", "master", "orders", "shipping", "billing"}},
        {"tools", dao + QStringList{"data/dao", "data/engines/sqlite", "data/engines/postgres"}},
    };
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

QDir root()
{
    return QDir(QStringLiteral(TAMRICK_TEST_DATA "/.."));
}

QStringList sourcesIn(const QString &folder)
{
    QStringList files;
    QDirIterator it(root().filePath(folder), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    return files;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

TEST(Conventions, EachFolderIncludesOnlyFromTheFoldersBelowIt)
{
    static const QRegularExpression include(R"re(^\s*#include "([^"]+)")re", QRegularExpression::MultilineOption);
    for (const Layer &layer : layers()) {
        const QStringList files = sourcesIn(layer.folder);
        EXPECT_FALSE(files.isEmpty()) << layer.folder.toStdString();
        for (const QString &path : files) {
            if (folderOf(root().relativeFilePath(path)) != layer.folder)
                continue; // of a row of its own
            auto match = include.globalMatch(contentOf(path));
            while (match.hasNext()) {
                const QString included = match.next().captured(1);
                const QString target = folderOf(included);
                EXPECT_TRUE(target.isEmpty() || target == layer.folder || layer.mayUse.contains(target))
                    << path.toStdString() << " includes " << included.toStdString();
            }
        }
    }
}

TEST(Conventions, TheDataLayerAndTheAdministratorsToolKnowNoWidget)
{
    static const QRegularExpression widget(
        R"re(#include <(Q\w*(Widget|Dialog|Painter|Application|Window|Font|Gui)\w*)[/>])re");
    for (const QString &folder : {QStringLiteral("data"), QStringLiteral("tools")}) {
        for (const QString &path : sourcesIn(folder)) {
            const auto match = widget.match(contentOf(path));
            const QString found = match.captured(1);
            EXPECT_TRUE(!match.hasMatch() || found == "QCoreApplication")
                << path.toStdString() << " includes " << found.toStdString();
        }
    }
}

TEST(Conventions, NoFormKnowsWhichEngineIsUnderneath)
{
    for (const Layer &layer : layers()) {
        if (layer.folder.startsWith("data/") || layer.folder == "tools")
            continue;
        for (const QString &path : sourcesIn(layer.folder)) {
            const QString content = contentOf(path);
            EXPECT_FALSE(content.contains("sqlite3.h") || content.contains("data/engines/")) << path.toStdString();
        }
    }
}

TEST(Conventions, TheDataLayerSpeaksToAnEngineThroughItsInterfaceAlone)
{
    static const QRegularExpression foreign(R"re(sqlite3|libpq|\bPQ\w+\(|#include "data/engines/(?!engines\.h"))re");
    for (const QString folder : {"data/dao", "data/engine", "data/jetsql", "data/schema"}) {
        for (const QString &path : sourcesIn(folder)) {
            const auto match = foreign.match(contentOf(path));
            EXPECT_FALSE(match.hasMatch()) << path.toStdString() << " has " << match.captured().toStdString();
        }
    }
}
