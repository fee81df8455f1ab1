#include "toolkit/forms/form.h"

#include "data/values/runtimeerror.h"
#include "toolkit/controls/combotypeahead.h"
#include "toolkit/controls/frame.h"
#include "toolkit/forms/mainmod.h"
#include <QCloseEvent>
#include <QMdiSubWindow>

namespace {
/// A field that is to be typed into must be seen.
void restoreWindowOf(QWidget *control)
{
    for (QWidget *widget = control; widget; widget = widget->parentWidget())
        if (auto *window = qobject_cast<QMdiSubWindow *>(widget); window && window->isMinimized())
            window->showNormal();
}
} // namespace

Form::Form(const QString &name, const QString &caption)
{
    setObjectName(name);
    setWindowTitle(caption);
}

void Form::unload()
{
    // Once: the form's own routine may unload it again, or close windows.
    if (m_unloading)
        return;
    m_unloading = true;
    // Before the form's own routine: what goes raises no LostFocus, whatever that routine does to the controls.
    ProgramFocus::removeAllIn(this);
    formUnload();
    if (auto *window = qobject_cast<QMdiSubWindow *>(parentWidget())) {
        window->close(); // takes the form with it when control is back in the event loop
    } else {
        close();
        deleteLater();
    }
}

void Form::closeEvent(QCloseEvent *event)
{
    unload();
    event->accept();
}

void Form::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    formResize();
}

void Form::focusFirst()
{
    const auto first = std::find_if(m_tabOrder.begin(), m_tabOrder.end(), [this](const QWidget *control) {
        // A form that is not shown yet has no visible controls; what was hidden on purpose is told by the explicit
        // mark.
        return control->isEnabledTo(this) && !control->testAttribute(Qt::WA_WState_ExplicitShowHide);
    });
    if (first != m_tabOrder.end())
        (*first)->setFocus();
}

void Form::setFocusTo(QWidget *widget)
{
    restoreWindowOf(widget);
    // As the platform has it: a control that cannot take the focus makes the routine fail, it is not passed over.
    if (!widget->isVisible() || !widget->isEnabled())
        throw runtimeError(5);
    ProgramFocus::moveTo(widget);
}

void Form::setTabOrder(const QList<QWidget *> &order)
{
    m_tabOrder = order;
    for (int i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void Form::setTypeAhead(ComboBox *box)
{
    connect(box, &ComboBox::keyPress, box, [box](int &key) { ComboTypeAhead(*box, key, gTypeAheadSeconds); });
}

TextBox *Form::addText(const char *name)
{
    auto *box = add<TextBox>(name);
    box->setSelectAllOnFocus();
    return box;
}

MaskEdBox *Form::addMoney(const char *name)
{
    auto *box = add<MaskEdBox>(name);
    box->setSelectAllOnFocus();
    return box;
}

MaskEdBox *Form::addMoneyDisplay(const char *name)
{
    auto *box = add<MaskEdBox>(name);
    box->setReadOnly(true);
    // Neither Tab nor a click reaches it, so it is no stop on the way and its text is the program's alone.
    box->setFocusPolicy(Qt::NoFocus);
    return box;
}

ComboBox *Form::addList(const char *name)
{
    return add<ComboBox>(name, ComboBox::Style::DropDownList);
}

ComboBox *Form::addEditable(const char *name)
{
    return add<ComboBox>(name, ComboBox::Style::Editable);
}

DTPicker *Form::addDate(const char *name)
{
    return add<DTPicker>(name);
}

QPushButton *Form::addButton(const char *name, const QString &caption)
{
    auto *button = add<QPushButton>(name, caption);
    button->setAutoDefault(true); // Enter presses the button that has the focus
    return button;
}

QCheckBox *Form::addCheck(const char *name, const QString &caption)
{
    return add<QCheckBox>(name, caption);
}

QGroupBox *Form::addFrame(const char *name, const QString &caption)
{
    return add<Frame>(name, caption);
}

QLabel *Form::addLabel(const char *name, const QString &caption)
{
    auto *label = add<QLabel>(name, caption);
    // Names out of the database stand in labels too, and a < in one is no markup.
    label->setTextFormat(Qt::PlainText);
    return label;
}

FlexGrid *Form::addGrid(const char *name)
{
    return add<FlexGrid>(name);
}

ComboBox *Form::addHiddenList(const char *name)
{
    ComboBox *list = addEditable(name);
    list->setFocusPolicy(Qt::NoFocus);
    list->hide();
    return list;
}
