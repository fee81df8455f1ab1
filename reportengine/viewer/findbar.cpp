#include "reportengine/viewer/findbar.h"

#include "reportengine/viewer/pageicons.h"
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

FindBar::FindBar(QWidget *parent) : QToolBar(parent), m_text(new QLineEdit(this)), m_result(new QLabel(this))
{
    setObjectName("findBar");
    setIconSize({16, 16});
    m_text->setObjectName("findText");
    m_text->setAccessibleName("Find text");
    m_text->setPlaceholderText("Find text");
    m_text->setClearButtonEnabled(true);
    m_text->setMaximumWidth(280);
    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::textChanged, this, &FindBar::textChanged);
    addWidget(m_text);
    connect(addButton("findPrevious", "Find Previous", "The place before (Shift+F3)", PageIcon::Up),
            &QAction::triggered, this, [this] { emit findAsked(false); });
    connect(addButton("findNext", "Find Next", "The next place (F3)", PageIcon::Down), &QAction::triggered, this,
            [this] { emit findAsked(true); });
    m_result->setObjectName("findResult");
    m_result->setContentsMargins(8, 0, 8, 0);
    m_result->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(m_result);
    connect(addButton("findClose", "Close", "Close (Esc)", PageIcon::Close), &QAction::triggered, this,
            &FindBar::leave);
    hide();
}

QAction *FindBar::addButton(const char *name, const QString &caption, const QString &tip, PageIcon icon)
{
    QAction *action = addAction(pageIcon(icon), caption);
    action->setObjectName(QLatin1String(name));
    action->setToolTip(tip);
    return action;
}

void FindBar::enter()
{
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    // What was sought last is found again by Enter or typed over.
    m_text->selectAll();
}

QString FindBar::text() const
{
    return m_text->text();
}

void FindBar::showResult(const QString &text)
{
    m_result->setText(text);
}

void FindBar::leave()
{
    hide();
    emit closed();
}

bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<QKeyEvent *>(event);
        // Taken from the field, which would keep Shift+Enter for itself.
        if (press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter) {
            emit findAsked(!(press->modifiers() & Qt::ShiftModifier));
            return true;
        }
    }
    return QToolBar::eventFilter(watched, event);
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        leave();
    else
        QToolBar::keyPressEvent(event);
}
