#include "toolkit/controls/combobox.h"

#include "data/values/runtimeerror.h"
#include "toolkit/controls/combolist.h"
#include "toolkit/controls/onelinetext.h"
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QTimer>

namespace {
/// The character code that a key press types, or 0 for keys that type none (arrows, function keys, Tab, Delete).
int keyAsciiOf(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete:
        return 0;
    default:
        break;
    }
    if (event.modifiers() == Qt::ControlModifier && event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)
        return event.key() - Qt::Key_A + 1;
    const QString text = event.text();
    return text.isEmpty() || event.modifiers().testFlag(Qt::AltModifier) ? 0 : text.at(0).unicode();
}

constexpr int FirstPrintable = 32;
} // namespace

ComboBox::ComboBox(Style style, QWidget *parent) : QComboBox(parent), m_style(style), m_list(new ComboList(this))
{
    setModel(m_list);
    // Without these Qt measures every entry whenever the box is laid out.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    setMaxVisibleItems(16);
    setFocusPolicy(Qt::StrongFocus);
    if (style == Style::Editable)
        makeEditable();
    connect(this, &QComboBox::currentIndexChanged, this, &ComboBox::indexChanged);
    connect(this, &QComboBox::activated, this, &ComboBox::picked);
}

void ComboBox::makeEditable()
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    // Qt would select an entry that equals the typed text as soon as the box is left; typing never selects.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, this, &ComboBox::change);
    takeOneLineOnly(lineEdit());
    lineEdit()->installEventFilter(this);
}

QString ComboBox::text() const
{
    return currentText();
}

void ComboBox::setText(const QString &text)
{
    if (m_style == Style::DropDownList) {
        // The empty text blanks a list without an error, any other that it does not hold is error 383.
        const int index = text.isEmpty() ? -1 : m_list->find(text);
        if (index < 0 && !text.isEmpty())
            throw runtimeError(383);
        setListIndex(index);
        return;
    }
    // The text may be any; an entry that equals it is selected without a click.
    const QString former = this->text();
    showIndex(m_list->find(text));
    setEditText(text);
    if (text != former)
        emit change();
}

int ComboBox::listIndex() const
{
    const int index = currentIndex();
    // Qt keeps the index while other text is typed over the entry; forms take it for what the text stands for.
    const bool overtyped = m_style == Style::Editable && m_list->at(index).compare(text(), Qt::CaseInsensitive) != 0;
    return overtyped ? -1 : index;
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= listCount())
        throw runtimeError(380);
    showIndex(index);
    if (m_style == Style::Editable)
        setEditText(m_list->at(index));
    // A click also where the selection stays what it was. Forms rely on it.
    if (index >= 0)
        emit click();
}

void ComboBox::showIndex(int index)
{
    const QScopedValueRollback assigning(m_assigning, true);
    setCurrentIndex(index);
}

int ComboBox::listCount() const
{
    return m_list->rowCount();
}

QString ComboBox::list(int index) const
{
    return m_list->at(index);
}

void ComboBox::addItem(const Value &item)
{
    append({item.toText()});
}

void ComboBox::addItems(const QStringList &items)
{
    append(items);
}

void ComboBox::append(const QStringList &items)
{
    // Qt selects the first entry of a list that was empty; here nothing is selected until somebody does.
    const int index = currentIndex();
    const QString shown = text();
    m_assigning = true;
    m_list->append(items);
    if (currentIndex() != index) {
        setCurrentIndex(index);
        if (m_style == Style::Editable)
            setEditText(shown);
    }
    m_assigning = false;
}

int ComboBox::findString(const QString &prefix) const
{
    return m_list->findPrefix(prefix);
}

/// Wide enough for entries longer than the box, up to twice its width. Only those of most characters are measured:
/// there may be many thousands.
int ComboBox::listWidth() const
{
    constexpr int Measured = 100;
    int width = 0;
    for (const QString &entry : m_list->longest(Measured))
        width = std::max(width, fontMetrics().horizontalAdvance(entry));
    const int around = QWidget::style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view()) +
                       2 * (QWidget::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + view()->frameWidth()) + 8;
    return std::min(width + around, 2 * this->width());
}

void ComboBox::showPopup()
{
    m_clickDone = false;
    if (auto *entries = qobject_cast<QListView *>(view())) {
        // Or the list measures every entry before it drops down.
        entries->setUniformItemSizes(true);
        entries->setMinimumWidth(listWidth());
        // Asked first is the filter that was installed last, and Qt installs one of its own.
        entries->removeEventFilter(this);
        entries->installEventFilter(this);
    }
    QComboBox::showPopup();
    showInList(currentIndex());
}

/// Makes an entry the lowered list's current one, in the middle of what shows of the list.
void ComboBox::showInList(int index)
{
    const QModelIndex entry = m_list->index(index);
    view()->setCurrentIndex(entry);
    view()->scrollTo(entry, QAbstractItemView::PositionAtCenter);
}

void ComboBox::hidePopup()
{
    QComboBox::hidePopup();
    // Where the open list was the active window and no desktop makes the program's own active again.
    QTimer::singleShot(0, this, [this] {
        if (isVisible() && !QGuiApplication::focusWindow())
            QApplication::setActiveWindow(window());
    });
}

/// Raises keyPress for a key that types a character; true when a slot swallowed it.
bool ComboBox::typed(const QKeyEvent &event)
{
    int keyAscii = keyAsciiOf(event);
    if (keyAscii == 0)
        return false;
    emit keyPress(keyAscii);
    return keyAscii == 0;
}

void ComboBox::keyPressEvent(QKeyEvent *event)
{
    m_clickDone = false;
    if (typed(*event)) {
        event->accept();
        return;
    }
    const int keyAscii = keyAsciiOf(*event);
    if (m_style == Style::DropDownList && keyAscii >= FirstPrintable)
        selectByFirstLetter(QChar(keyAscii));
    else
        QComboBox::keyPressEvent(event);
}

/// The next entry below the selected one that starts with the letter, round the end of the list.
void ComboBox::selectByFirstLetter(QChar letter)
{
    // Where no routine swallows the key; those with type-ahead do.
    int index = m_list->findPrefix(letter, currentIndex() + 1);
    if (index < 0)
        index = m_list->findPrefix(letter);
    if (index >= 0 && index != currentIndex())
        setListIndex(index);
}

void ComboBox::indexChanged(int index)
{
    if (m_assigning || index < 0)
        return;
    m_clickDone = true;
    emit click();
}

/// Picking the entry that is selected already changes no index and is a click all the same.
void ComboBox::picked()
{
    if (!std::exchange(m_clickDone, false))
        emit click();
}

void ComboBox::wheelEvent(QWheelEvent *event)
{
    // The wheel belongs to the control that has the focus, not to the one that lies under the mouse.
    m_clickDone = false;
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

bool ComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (watched == lineEdit() && typed(key))
            return true;
        // In the open list Enter and Esc are also the list's own keys.
        if (view() == watched && typed(key) && keyAsciiOf(key) >= FirstPrintable) {
            showInList(currentIndex());
            return true;
        }
        if (view() == watched && listKeyPressed(key))
            return true;
    }
    return QComboBox::eventFilter(watched, event);
}

/// Keys of the lowered list beside those that Qt's own handles. The arrows select as they do in the closed box, so that
/// each entry passed is a click; Tab keeps what is selected and goes on to the next control.
bool ComboBox::listKeyPressed(const QKeyEvent &event)
{
    const bool back = event.key() == Qt::Key_Backtab;
    if (back || event.key() == Qt::Key_Tab) {
        const int entry = view()->currentIndex().row();
        hidePopup();
        if (entry != currentIndex())
            setCurrentIndex(entry);
        focusNextPrevChild(!back);
        return true;
    }
    if (event.modifiers() & Qt::AltModifier)
        return false;
    const int page = maxVisibleItems() - 1, last = listCount() - 1, now = view()->currentIndex().row();
    int entry = now;
    switch (event.key()) {
    case Qt::Key_Up:
        entry = now - 1;
        break;
    case Qt::Key_Down:
        entry = now + 1;
        break;
    case Qt::Key_PageUp:
        entry = now - page;
        break;
    case Qt::Key_PageDown:
        entry = now + page;
        break;
    case Qt::Key_Home:
        entry = 0;
        break;
    case Qt::Key_End:
        entry = last;
        break;
    default:
        return false;
    }
    setCurrentIndex(std::clamp(entry, std::min(0, last), last));
    view()->setCurrentIndex(m_list->index(currentIndex()));
    return true;
}
