#include "toolkit/controls/onelinetext.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>

namespace {
QString firstLine(const QString &text)
{
    static const QRegularExpression lineEnd("[\r\n\\x{2028}\\x{2029}]");
    return text.section(lineEnd, 0, 0);
}

/// Stands before the box in every way that text comes in but the keys.
class OneLine : public QObject
{
public:
    explicit OneLine(QLineEdit *box) : QObject(box), m_box(box) { box->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // Nothing comes into a box that only shows.
        if (m_box->isReadOnly())
            return false;
        switch (event->type()) {
        case QEvent::KeyPress:
            return static_cast<QKeyEvent *>(event)->matches(QKeySequence::Paste) && paste(QClipboard::Clipboard);
        case QEvent::MouseButtonRelease:
            return static_cast<QMouseEvent *>(event)->button() == Qt::MiddleButton &&
                   QApplication::clipboard()->supportsSelection() && paste(QClipboard::Selection);
        case QEvent::Drop:
            return drop(static_cast<QDropEvent *>(event));
        case QEvent::ContextMenu:
            return showMenu(static_cast<QContextMenuEvent *>(event)->globalPos());
        default:
            return false;
        }
    }

private:
    bool paste(QClipboard::Mode mode)
    {
        if (mode == QClipboard::Selection)
            m_box->deselect(); // it goes where the press put the caret
        m_box->insert(firstLine(QApplication::clipboard()->text(mode)));
        return true;
    }

    bool drop(QDropEvent *event)
    {
        // Moving a part within the box is Qt's own business, and brings no line end along.
        if (event->source() == m_box || !event->mimeData()->hasText())
            return false;
        m_box->setCursorPosition(m_box->cursorPositionAt(event->position().toPoint()));
        m_box->insert(firstLine(event->mimeData()->text()));
        event->acceptProposedAction();
        return true;
    }

    bool showMenu(QPoint place)
    {
        QMenu *menu = m_box->createStandardContextMenu();
        for (QAction *entry : menu->actions()) {
            // The menu has no names for its entries; the caption is all there is to know one by.
            if (!entry->text().startsWith(QLineEdit::tr("&Paste")))
                continue;
            entry->disconnect();
            connect(entry, &QAction::triggered, this, [this] { paste(QClipboard::Clipboard); });
        }
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(place);
        return true;
    }

    QLineEdit *m_box;
};
} // namespace

void takeOneLineOnly(QLineEdit *box)
{
    new OneLine(box);
}
