#include "reportengine/pages/textmetrics.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/pageview.h"
#include "reportengine/viewer/viewer.h"
#include "reportengine/viewer/viewerbar.h"
#include "tests/reportengine/reportfixture.h"
#include "tests/support/boxes.h"
#include "toolkit/controls/statusline.h"
#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

namespace {

/// A viewer as staff have it before them.
class ViewerTest : public testing::Test
{
protected:
    ViewerTest()
    {
        setStatusPlace([this](const QString &text) { m_status = text; });
    }
    ~ViewerTest() override { setStatusPlace({}); }

    void show(std::shared_ptr<Report> report)
    {
        m_viewer.resize(700, 600);
        m_viewer.show();
        m_viewer.setReportSource(std::move(report));
        m_viewer.viewReport();
        m_control = m_viewer.findChild<CRViewer *>("CRViewer");
        ASSERT_TRUE(m_control);
        m_view = find<PageView>("pageView");
        m_viewer.activateWindow();
        QTest::qWait(1);
    }
    /// A key as it comes from the window system.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_viewer.windowHandle(), key, modifiers);
    }
    void search(const QString &text)
    {
        key(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(m_viewer.focusWidget(), text);
        key(Qt::Key_Return);
    }
    QString findResult() { return find<QLabel>("findResult")->text().trimmed(); }
    QString zoomShown() { return find<QComboBox>("zoom")->currentText(); }
    /// Whether the pages show such a colour.
    bool isShown(bool (*isSuch)(const QColor &))
    {
        const QImage image = m_view->viewport()->grab().toImage();
        for (int at = 0; at < image.width() * image.height(); ++at)
            if (isSuch(image.pixelColor(at % image.width(), at / image.width())))
                return true;
        return false;
    }
    int scrolled() { return m_view->verticalScrollBar()->value(); }
    /// Does something with a modal dialog once it has come up.
    template <class Dialog> void answer(const char *name, std::function<void(Dialog &)> deed)
    {
        QTimer::singleShot(0, m_control, [this, name, deed = std::move(deed)] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible() || dialog->objectName() != name)
                return answer<Dialog>(name, deed);
            deed(*dialog);
        });
    }
    /// Chooses a file in the export dialog that is to come.
    void chooseFile(const QString &path)
    {
        answer<QFileDialog>("exportDialog", [path](QFileDialog &dialog) {
            dialog.findChild<QLineEdit *>("fileNameEdit")->setText(path);
            QTest::keyClick(dialog.findChild<QLineEdit *>("fileNameEdit"), Qt::Key_Return);
        });
    }
    template <class Control> Control *find(const char *name)
    {
        auto *control = m_viewer.findChild<Control *>(name);
        EXPECT_TRUE(control) << name;
        return control;
    }
    int pageCount() { return m_control->pageCount(); }
    void press(const char *action) { find<QAction>(action)->trigger(); }

    Viewer m_viewer;
    CRViewer *m_control = nullptr;
    PageView *m_view = nullptr;
    QString m_status;
};

TEST_F(ViewerTest, FillsItsWindowWithItsOwnReportAndWritesIt)
{
    show(sampleReport("crptPickTicket", 5));
    Viewer other;
    other.setReportSource(sampleReport("crptPackingSlip", 90));
    other.viewReport();
    EXPECT_EQ(m_viewer.objectName(), "Viewer");
    EXPECT_EQ(m_viewer.windowTitle(), "Report Viewer");
    m_viewer.resize(500, 400);
    EXPECT_EQ(m_control->geometry(), m_viewer.rect());
    EXPECT_TRUE(isShown([](const QColor &pixel) { return pixel.lightness() < 80; })) << "there is text on the page";
    EXPECT_EQ(find<QLabel>("pageTotal")->text().trimmed(), "of 1");
    EXPECT_GT(other.viewer()->pageCount(), 1);
    m_viewer.findChild<ViewerBar *>()->showPage(0, 3, false);
    EXPECT_EQ(find<QLabel>("pageTotal")->text().trimmed(), "of 3+") << "while pages are counted";

    QTemporaryDir folder;
    for (const char *suffix : {"pdf", "xlsx", "csv", "doc"}) {
        const QString path = folder.filePath(QString("r.") + suffix);
        EXPECT_EQ(m_control->exportTo(path), QString(suffix) != "doc") << suffix;
        EXPECT_EQ(QFile::exists(path), QString(suffix) != "doc") << suffix;
    }
}

TEST_F(ViewerTest, CountsThePagesOfALongReportWhileItIsReadAndItsGroupsWithThem)
{
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < 60000; ++i)
        rows.push_back({QString::number(i / 7000), QString::number(i / 40)});
    show(reportOver(
        tableLayout({.title = "Long",
                     .groups = {{.by = "{Region}"}, {.by = "{Customer}"}},
                     .columns = {{.heading = "Name", .source = "\"A name to be wrapped \" & {Customer}", .width = 60},
                                 {.heading = "Region", .source = "{Region}", .width = 600}}}),
        MadeRows({"Region", "Customer"}, rows), datasetOf("Region T, Customer T")));
    QAbstractItemModel *groups = find<QTreeView>("groupTree")->model();
    const QAbstractItemModelTester tester(groups, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QTRY_VERIFY(!find<QLabel>("pageTotal")->text().contains('+'));
    EXPECT_GT(pageCount(), 500);
    EXPECT_EQ(groups->rowCount(), 9);
    int customers = 0;
    for (int region = 0; region < groups->rowCount(); ++region)
        customers += groups->rowCount(groups->index(region, 0));
    EXPECT_EQ(customers, 1500);
}

TEST_F(ViewerTest, TheTreeNamesAnOrderAsItsHeadingDoes)
{
    show(sampleReport("crptOpenOrders", 3));
    const QString first = find<QTreeView>("groupTree")->model()->index(0, 0).data().toString();
    EXPECT_TRUE(first.contains(", ")) << "number and customer: " << qPrintable(first);
}

/// Ten groups of twenty rows, every fourth of a customer whose name the layout wraps or cuts.
std::unique_ptr<Report> longNames(Overflow overflow, const QString &hiddenIf = {})
{
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < 200; ++i)
        rows.push_back({i % 4 ? "Short" : "The Old Machine Works of Eastern Pennsylvania", i / 20});
    Layout layout = tableLayout({.title = "Names",
                                 .groups = {{.by = "{Qty}"}},
                                 .columns = {{.heading = "Customer", .source = "{Customer}"},
                                             {.heading = "Qty", .source = "{Qty}", .width = 500}}});
    sectionNamed(layout, "secDetail").objects.front().overflow = overflow;
    for (const char *name : {"secGroupHeader1", "secDetail"})
        sectionNamed(layout, name).suppressIf = hiddenIf;
    return reportOver(std::move(layout), MadeRows({"Customer", "Qty"}, rows), datasetOf("Customer T, Qty N"));
}

TEST_F(ViewerTest, FindsTextAndCountsItsPlacesAlsoWhereThePaperWrapsOrCutsIt)
{
    for (const Overflow overflow : {Overflow::Wrap, Overflow::Shorten}) {
        show(longNames(overflow));
        ASSERT_GT(pageCount(), 1);
        search("no such words");
        EXPECT_EQ(findResult(), "Not found");
        search("customer");
        // Orange, over the tint of a heading as well.
        EXPECT_TRUE(
            isShown([](const QColor &pixel) { return pixel.hsvHue() / 10 == 3 && pixel.hsvSaturation() > 150; }));
        search("works OF eastern");
        EXPECT_EQ(findResult(), "1 of 50");
        key(Qt::Key_F3);
        EXPECT_EQ(findResult(), "2 of 50");
        EXPECT_EQ(m_control->currentPage(), 0);
        m_view->setFocus();
        key(Qt::Key_F3, Qt::ShiftModifier);
        key(Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(findResult(), "50 of 50") << "round by the end";
        EXPECT_EQ(m_control->currentPage(), pageCount() - 1);
        key(Qt::Key_F3);
        EXPECT_EQ(findResult(), "1 of 50");
        press("findPrevious");
        EXPECT_EQ(findResult(), "50 of 50");
    }
}

TEST(PageText, AFindIsTheWordAloneOnEachOfItsLines)
{
    const TextStyle style{.size = 10};
    const Value whole("Old Machine Works of Eastern Pennsylvania");
    const auto line = [&](double top, const QString &text, int number) {
        return PageItem{.rect = {50, top, 100, 12}, .text = text, .style = style, .value = whole, .line = number};
    };
    const Page page{{612, 792}, {line(100, "Old Machine", 0), line(112, "Works of\u2026", 1)}};
    const auto width = [&](const char *text) { return TextMetrics::width(text, style); };

    const auto machine = findOn(page, "machine");
    ASSERT_EQ(machine.size(), 1u);
    EXPECT_EQ(machine[0].places, std::vector{QRectF(50 + width("Old "), 100, width("Machine"), 12)});
    const auto over = findOn(page, "machine works");
    ASSERT_EQ(over[0].places.size(), 2u);
    EXPECT_EQ(over[0].places[1], QRectF(50, 112, width("Works"), 12));
    const auto cut = findOn(page, "eastern");
    ASSERT_EQ(cut[0].places.size(), 1u);
    EXPECT_NEAR(cut[0].places[0].left(), 50 + width("Works of"), 0.01) << "the ellipsis stands for it";
}

TEST_F(ViewerTest, KeysWorkWhereverTheFocusIs)
{
    show(sampleReport("crptSalesByPart", 800));
    press("groupTreeToggle");
    const auto state = [this] {
        const QString page = m_control->currentPage() == pageCount() - 1 ? "last" : m_control->currentPage() ? "" : "1";
        const bool hasTree = m_control->findChild<QAction *>("groupTreeToggle")->isChecked();
        return page + (scrolled() > 100 ? " down " : " top ") + zoomShown() + (hasTree ? " tree" : "");
    };
    const std::pair<QKeyCombination, const char *> steps[] = {{Qt::CTRL | Qt::Key_0, "1 top 100% tree"},
                                                              {Qt::Key_End, "last down 100% tree"},
                                                              {Qt::Key_Home, "1 top 100% tree"},
                                                              {Qt::Key_PageDown, "1 down 100% tree"},
                                                              {Qt::Key_PageUp, "1 top 100% tree"},
                                                              {Qt::CTRL | Qt::Key_Plus, "1 top 125% tree"},
                                                              {Qt::CTRL | Qt::Key_Minus, "1 top 100% tree"},
                                                              {Qt::CTRL | Qt::Key_G, "1 top 100%"},
                                                              {Qt::CTRL | Qt::Key_G, "1 top 100% tree"}};
    for (const char *focus : {"pageView", "groupTree", "findText", "pageNumber", "zoom"}) {
        SCOPED_TRACE(focus);
        const auto enter = [&] {
            m_viewer.activateWindow(); // the dialog of the round before has gone
            QTest::qWait(1);
            find<QWidget>(focus)->setFocus();
        };
        enter();
        for (const auto &[pressed, seen] : steps) {
            key(pressed.key(), pressed.keyboardModifiers());
            EXPECT_EQ(state(), seen) << pressed.key();
        }
        enter();
        key(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(m_viewer.focusWidget()->objectName(), "findText");
        enter();
        bool cameUp = false;
        answer<QPrintDialog>("printDialog", [&](QPrintDialog &dialog) {
            cameUp = true;
            dialog.reject();
        });
        key(Qt::Key_P, Qt::ControlModifier);
        EXPECT_TRUE(cameUp);
    }
}

TEST_F(ViewerTest, TheZoomListSaysWhatIsShown)
{
    show(sampleReport("crptSalesByPart", 100));
    EXPECT_EQ(zoomShown(), "Page Width");
    find<QComboBox>("zoom")->setCurrentText("100%");
    const int entries = find<QComboBox>("zoom")->count();
    QWheelEvent turn({100, 100}, m_view->viewport()->mapToGlobal(QPointF(100, 100)), {}, {0, 120}, Qt::NoButton,
                     Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_view->viewport(), &turn);
    EXPECT_EQ(zoomShown(), "110%");
    EXPECT_EQ(m_view->percent(), 110);
    find<QComboBox>("zoom")->setCurrentText("Whole Page");
    EXPECT_EQ(zoomShown(), "Whole Page");
    EXPECT_EQ(find<QComboBox>("zoom")->count(), entries) << "110% is gone from the list";
}

TEST_F(ViewerTest, EveryPageCanBeReachedHoweverSmall)
{
    show(sampleReport("crptSalesByPart", 300));
    const int pages = pageCount();
    auto *number = find<QSpinBox>("pageNumber");
    for (const char *zoom : {"25%", "Whole Page", "400%"}) {
        SCOPED_TRACE(zoom);
        find<QComboBox>("zoom")->setCurrentText(zoom);
        press("firstPage");
        for (int page = 0; page < pages; ++page) {
            EXPECT_EQ(m_control->currentPage(), page);
            EXPECT_EQ(find<QAction>("nextPage")->isEnabled(), page < pages - 1);
            EXPECT_EQ(find<QAction>("previousPage")->isEnabled(), page > 0);
            press("nextPage");
        }
        press("firstPage");
        m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum());
        EXPECT_EQ(number->value(), m_view->verticalScrollBar()->maximum() > 0 ? pages : 1);
        press("firstPage");
        press("lastPage");
        EXPECT_EQ(number->value(), pages);
        for (const char *typed : {"4", "99999"}) {
            number->setFocus();
            number->selectAll();
            QTest::keyClicks(number, typed);
            key(Qt::Key_Return);
            EXPECT_EQ(m_control->currentPage(), std::min(QString(typed).toInt(), pages) - 1);
        }
        find<QComboBox>("zoom")->setCurrentText("50%");
        EXPECT_EQ(m_control->currentPage(), pages - 1) << "another zoom keeps the page";
    }
}

TEST_F(ViewerTest, TheGroupTreeListsWhatIsPrintedAndFollowsThePage)
{
    show(longNames(Overflow::Shorten, "{Qty} = 1 or {Qty} = 3"));
    ASSERT_GT(pageCount(), 2);
    auto *tree = find<QTreeView>("groupTree");
    EXPECT_FALSE(tree->isVisible());
    press("groupTreeToggle");
    QStringList groups;
    for (int row = 0; row < tree->model()->rowCount(); ++row)
        groups.append(tree->model()->index(row, 0).data().toString());
    EXPECT_EQ(groups, (QStringList{"0", "2", "4", "5", "6", "7", "8", "9"}));
    EXPECT_EQ(tree->currentIndex().data().toString(), "0");
    press("lastPage");
    const QString shown = tree->currentIndex().data().toString();
    EXPECT_TRUE(m_control->reportSource()->pages().page(pageCount() - 1)->texts().contains(shown)) << qPrintable(shown);

    find<QComboBox>("zoom")->setCurrentText("100%");
    QTest::qWait(1); // lets the tree take its place
    const QModelIndex five = tree->model()->index(3, 0);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(five).center());
    const QPixmap picture = m_view->viewport()->grab();
    const QImage image = picture.toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 2, 20), QColor(208, 228, 245)) << "its band is at the window's top";
    EXPECT_EQ(tree->currentIndex(), five);
}

TEST_F(ViewerTest, TheMouseSelectsTextAndDragsThePages)
{
    show(reportOver(tableLayout({.title = "Sales",
                                 .columns = {{.heading = "Customer", .source = "{Customer}", .width = 200},
                                             {.heading = "Qty", .source = "{Qty}", .total = true}}}),
                    salesRows()));
    find<QComboBox>("zoom")->setCurrentText("100%");
    const Page page = *m_control->reportSource()->pages().page(0);
    const double scale = m_view->percent() / 100.0 * m_view->logicalDpiX() / 72;
    const auto pointOf = [&](const QString &text, bool atEnd) {
        for (const PageItem &item : page.items) {
            if (item.text != text)
                continue;
            const QRectF ink = placeOf(item, 0, item.text.size());
            const QPointF point(atEnd ? ink.right() - 0.3 : ink.left() + 0.3, ink.center().y());
            const int left = std::max(12, (m_view->viewport()->width() - int(612 * scale)) / 2);
            const QPointF inView =
                point * scale + QPointF(left, 12) - QPointF(m_view->horizontalScrollBar()->value(), scrolled());
            return m_view->viewport()->mapTo(&m_viewer, inView.toPoint());
        }
        return QPoint();
    };
    QWindow *window = m_viewer.windowHandle();
    const auto drag = [&](const QPoint &from, const QPoint &to) {
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        QTest::mouseMove(window, (from + to) / 2);
        QTest::mouseMove(window, to);
        QTest::mouseRelease(window, Qt::LeftButton, {}, to);
    };
    drag(pointOf("Beta", false), pointOf("Acme", true));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Beta\t2\nalpha\t4\nAcme");
    QTest::mouseDClick(window, Qt::LeftButton, {}, pointOf("Grand total", false));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Grand total");
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    const QString all = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(all.startsWith("Sales\tTamrick\nCustomer\tQty\nBeta\t2\n") && all.endsWith("\tPage 1 of 1"));

    const int before = scrolled();
    const QPoint blank = m_view->mapTo(&m_viewer, QPoint(40, 300));
    drag(blank, blank - QPoint(0, 120));
    EXPECT_EQ(scrolled(), before + 120);
    EXPECT_FALSE(m_view->hasSelection());
}

TEST_F(ViewerTest, ExportAsksBeforeItReplacesAFileAndSaysWhyItFailed)
{
    Boxes boxes;
    QTemporaryDir folder;
    show(sampleReport("crptPickTicket", 5));
    m_viewer.setWindowTitle("Pick Ticket, as of 11/23/2026");
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(folder.path()));
    QDir(folder.path()).mkdir("Documents");
    QString offered;
    answer<QFileDialog>("exportDialog", [&](QFileDialog &dialog) {
        offered = dialog.selectedFiles().value(0);
        dialog.reject();
    });
    press("export");
    EXPECT_EQ(offered, folder.filePath("Documents/Pick Ticket, as of 11-23-2026.pdf"));
    qputenv("HOME", home);

    // A name with points in it is a name, and gets the kind's suffix.
    const QString path = folder.filePath("Tickets 11.23.2026");
    chooseFile(path);
    press("export");
    EXPECT_TRUE(QFile::exists(path + ".pdf"));
    EXPECT_EQ(m_status, "Exported to " + path + ".pdf");

    QFile old(path + ".pdf");
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    for (const char *button : {"No", "Yes"}) {
        boxes.expect("Export", "Tickets 11.23.2026.pdf is there already. Replace it?", button);
        chooseFile(path);
        if (*button == 'N') // asks for another name
            QTimer::singleShot(0, m_control, [this] {
                answer<QFileDialog>("exportDialog", [](QFileDialog &dialog) { dialog.reject(); });
            });
        press("export");
        EXPECT_EQ(old.size() > 3, *button == 'Y');
    }

    boxes.expect("Export", "The report could not be written to /nowhere/r.csv.\n\n" + qt_error_string(ENOENT));
    chooseFile("/nowhere/r.csv");
    press("export");
    boxes.verify();
}

TEST_F(ViewerTest, ALongExportShowsHowFarItIsAndCanBeStopped)
{
    QTemporaryDir folder;
    show(sampleReport("crptNewAvailInv", 60000));
    pageCount();
    chooseFile(folder.filePath("r.pdf"));
    answer<QProgressDialog>("progress", [](QProgressDialog &window) {
        EXPECT_GT(window.maximum(), 0);
        QTest::mouseClick(window.findChild<QPushButton *>(), Qt::LeftButton);
    });
    press("export");
    EXPECT_EQ(m_status, "Export stopped");
    EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "nothing is left of it";
}

TEST_F(ViewerTest, ThePrintDialogTakesTheCurrentPageAndRangesOfPages)
{
    PrivatePrintServer server(PrivatePrintServer::queue("Office", true, true, true));
    show(sampleReport("crptSalesByPart", 300));
    press("nextPage");
    answer<QPageSetupDialog>("pageSetupDialog", [](QPageSetupDialog &dialog) {
        dialog.findChild<QRadioButton *>("landscape")->click();
        dialog.accept();
    });
    press("pageSetup");
    const auto printed = [&](const char *choice, int job) {
        answer<QPrintDialog>("printDialog", [choice](QPrintDialog &dialog) {
            EXPECT_EQ(dialog.printer()->printerName(), "Office");
            dialog.findChild<QLineEdit *>("pagesLineEdit")->setText("5,2-3");
            dialog.findChild<QRadioButton *>(choice)->click();
            dialog.accept();
        });
        press("print");
        QStringList pages;
        auto numbers = QRegularExpression("Page (\\d+) of").globalMatch(told("pdftotext", {server.jobFile(job), "-"}));
        while (numbers.hasNext())
            pages.append(numbers.next().captured(1));
        return pages;
    };
    EXPECT_EQ(printed("printCurrentPage", 1), QStringList{"2"});
    EXPECT_EQ(printed("pagesRadioButton", 2), (QStringList{"2", "3", "5"}));
    EXPECT_TRUE(told("pdfinfo", {server.jobFile(2)}).contains("792 x 612 pts")) << "as set up";
    EXPECT_FALSE(attributesOf(server, 2).contains("page-ranges")) << "the server would choose among the chosen again";
}

} // namespace
