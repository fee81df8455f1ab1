#include <QAbstractButton>
#include <QApplication>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>

namespace {
bool isWindowShown()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget *window) { return window->isVisible(); });
}
} // namespace

/// Answers the boxes of a real program that runs without a screen: a plugin that Qt loads where QT_QPA_GENERIC_PLUGINS
/// names it. Each box's text goes to standard output and its first button is pressed; "window" tells that a window
/// without a box stands, and ends the program.
class Answerer : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "answerer.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        auto *timer = new QTimer;
        connect(timer, &QTimer::timeout, timer, [] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                std::printf("%s\n", qUtf8Printable(box->text()));
                std::fflush(stdout);
                box->buttons().first()->click();
            } else if (isWindowShown()) {
                std::printf("window\n");
                std::fflush(stdout);
                QApplication::quit();
            }
        });
        timer->start(5);
        return timer;
    }
};

#include "answerer.moc"
