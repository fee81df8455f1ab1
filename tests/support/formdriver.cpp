#include "tests/support/formdriver.h"

#include "data/values/runtimeerror.h"
#include "toolkit/controls/mousepointer.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QRegularExpression>

namespace {
QPoint centre(const QWidget *widget)
{
    return widget->rect().center();
}

/// Where a check box's own square is: its row may be much wider than what reacts to the mouse.
QPoint hitPoint(const QWidget *widget)
{
    return qobject_cast<const QCheckBox *>(widget) ? QPoint(8, widget->height() / 2) : centre(widget);
}

QWidget *focusWidget()
{
    QWidget *widget = QApplication::focusWidget();
    if (!widget)
        throw std::runtime_error("no control has the focus");
    return widget;
}
} // namespace

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void expectRuntimeError(int number, const std::function<void()> &action, const QString &description)
{
    try {
        action();
        ADD_FAILURE() << "no run-time error was raised, expected " << number;
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_TRUE(description.isEmpty() || error.description() == description) << error.what();
    }
    setDefaultPointer(); // the ended program would leave the hourglass to nobody
}

FormDriver::FormDriver(const QString &form, const QString &steps)
{
    // In the program a form is loaded by an event.
    QMetaObject::invokeMethod(
        qApp, [&] { m_form = Load(form); }, Qt::QueuedConnection);
    comeToRest();
    if (!steps.isEmpty())
        act(steps);
}

void FormDriver::comeToRest() const
{
    QCoreApplication::processEvents();
    // A list that dropped down was a window of its own. When it has gone, a desktop makes the program's the active one.
    const QWidget *active = QApplication::activeWindow();
    if (isLoaded() && (!active || !active->isVisible()))
        QApplication::setActiveWindow(m_form->window());
}

QWidget *FormDriver::find(const QString &name) const
{
    if (!isLoaded())
        throw std::runtime_error("the form is gone");
    return m_form->findChild<QWidget *>(name);
}

void FormDriver::act(const QString &steps, const OwnSteps &own)
{
    static const QRegularExpression form(R"(^([^:\[]+)(?:\[([\d,]+)\])?(?:: ?(.*))?$)");
    for (const QString &one : steps.split(u';', Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch parts = form.match(one.trimmed());
        const QString name = parts.captured(1), text = parts.captured(3);
        const QStringList cell = parts.captured(2).split(u',', Qt::SkipEmptyParts);
        if (name.startsWith(u'<') || name == u"keys")
            press(name == u"keys" ? text : one.trimmed());
        else if (const auto act = own.find(name); act != own.end())
            act->second(text);
        else if (parts.hasCaptured(3))
            step(name, cell, text);
        else
            step(name, cell);
        comeToRest();
    }
    settle();
}

void FormDriver::press(const QString &keys)
{
    for (const QString &one : keys.split(u' ', Qt::SkipEmptyParts)) {
        if (one.startsWith(u'<')) {
            const QKeyCombination key = QKeySequence(one.mid(1).chopped(1))[0];
            this->key(key.key(), key.keyboardModifiers());
        } else {
            this->keys(one);
        }
    }
}

void FormDriver::step(const QString &name, const QStringList &cell)
{
    if (cell.isEmpty())
        click(name);
    else
        clickCell(name, cell[0].toInt(), cell.value(1).toInt());
}

void FormDriver::step(const QString &name, const QStringList &cell, const QString &text)
{
    auto *control = this->control<QWidget>(name);
    auto *list = qobject_cast<ComboBox *>(control);
    if (!cell.isEmpty())
        typeCell(name, cell[0].toInt(), cell[1].toInt(), text);
    else if (auto *picker = qobject_cast<DTPicker *>(control)) {
        click(name);
        picker->setSelectedSection(QDateTimeEdit::MonthSection);
        keys(text);
        EXPECT_EQ(picker->text(), text);
    } else if (!list || list->isEditable())
        type(name, text);
    else if (text.isEmpty())
        list->setListIndex(-1);
    else
        choose(name, text);
}

void FormDriver::click(const QString &name)
{
    auto *widget = control<QWidget>(name);
    if (!widget->isVisible())
        throw std::runtime_error("not to be seen: " + name.toStdString());
    // The part of the control under the mouse gets the press, such as the line edit inside a date picker.
    const QPoint place = hitPoint(widget);
    QWidget *part = widget->childAt(place);
    QTest::mouseClick(part ? part : widget, Qt::LeftButton, {}, part ? part->mapFrom(widget, place) : place);
}

void FormDriver::type(const QString &name, const QString &text)
{
    click(name);
    key(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        key(Qt::Key_Delete);
    else
        keys(text);
}

void FormDriver::keys(const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(focusWidget(), character.toLatin1());
}

void FormDriver::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(focusWidget(), key, modifiers);
}

void FormDriver::choose(const QString &name, const QString &entry)
{
    auto *combo = control<ComboBox>(name);
    const int index = combo->findText(entry, Qt::MatchFixedString);
    if (index < 0)
        throw std::runtime_error(name.toStdString() + " has no entry " + entry.toStdString());
    click(name);
    if (!combo->view()->isVisible())
        QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    QAbstractItemView *list = combo->view();
    const QModelIndex item = combo->model()->index(index, 0);
    list->scrollTo(item);
    list->setCurrentIndex(item);
    QTest::keyClick(list, Qt::Key_Return);
    comeToRest();
}

void FormDriver::clickCell(const QString &grid, int row, int col)
{
    auto *table = control<FlexGrid>(grid);
    const QModelIndex cell = table->model()->index(row - 1, col);
    table->scrollTo(cell);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(cell).center());
}

void FormDriver::doubleClickCell(const QString &grid, int row, int col)
{
    auto *table = control<FlexGrid>(grid);
    QHeaderView *header = table->horizontalHeader();
    if (row == 0) {
        const QPoint place(header->sectionViewportPosition(col) + header->sectionSize(col) / 2, header->height() / 2);
        QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, place);
        return;
    }
    clickCell(grid, row, col);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {},
                       table->visualRect(table->model()->index(row - 1, col)).center());
}

void FormDriver::typeCell(const QString &grid, int row, int col, const QString &text)
{
    clickCell(grid, row, col);
    keys(text);
    key(Qt::Key_Return);
    QCoreApplication::processEvents(); // the view takes the text over when the key is done with
}

QString FormDriver::text(const QString &name) const
{
    const auto *widget = control<QWidget>(name);
    if (const auto *check = qobject_cast<const QCheckBox *>(widget))
        return check->isChecked() ? QStringLiteral("True") : QStringLiteral("False");
    if (const auto *combo = qobject_cast<const ComboBox *>(widget))
        return combo->text();
    const char *property = qobject_cast<const QGroupBox *>(widget) ? "title" : "text";
    const QVariant value = widget->property(property);
    if (!value.isValid())
        throw std::runtime_error("holds no text: " + name.toStdString());
    return value.toString();
}

QString FormDriver::shows(const QString &names) const
{
    QStringList texts;
    for (const QString &name : names.split(u' '))
        texts += text(name);
    return texts.join(u'|');
}

QString FormDriver::row(const QString &grid, int row) const
{
    const auto *table = control<FlexGrid>(grid);
    QStringList cells;
    for (int col = 0; col < table->cols(); ++col)
        cells += table->textMatrix(row, col);
    return cells.join(u'|');
}

QString FormDriver::shownRow(const QString &grid, int row) const
{
    const QAbstractItemModel *model = control<FlexGrid>(grid)->model();
    QStringList cells;
    for (int col = 0; col < model->columnCount(); ++col)
        cells += model->index(row - 1, col).data().toString();
    return cells.join(u'|');
}

QStringList FormDriver::grid(const QString &name) const
{
    QStringList all;
    for (int row = 0; row < control<FlexGrid>(name)->rows(); ++row)
        all += this->row(name, row);
    return all;
}

QString FormDriver::focus() const
{
    for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            return widget->objectName();
    return {};
}
