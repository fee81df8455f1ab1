#include "app/formlist.h"
#include "tests/support/company.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QMdiSubWindow>
#include <QSet>
#include <QWindow>

// What holds for every form of the program, whoever made it.

namespace {
class EveryForm : public CompanyTest, public testing::WithParamInterface<std::string>
{
protected:
    EveryForm()
    {
        mdi->resize(UsualSize);
        form = Load(QString::fromStdString(GetParam()));
        settle();
    }

    /// The form's own controls, not the parts that Qt's are made of.
    QList<QWidget *> controls() const
    {
        QList<QWidget *> own;
        for (QWidget *widget : form->findChildren<QWidget *>()) {
            const auto isPartOf = [](QWidget *parent) {
                return qobject_cast<QComboBox *>(parent) || qobject_cast<QAbstractSpinBox *>(parent) ||
                       qobject_cast<QAbstractScrollArea *>(parent) || qobject_cast<QLineEdit *>(parent) ||
                       parent->objectName() == QLatin1String("CRViewer");
            };
            // A plain widget only holds others together.
            bool part = widget->isWindow() || widget->metaObject() == &QWidget::staticMetaObject;
            for (QWidget *parent = widget->parentWidget(); parent != form && !part; parent = parent->parentWidget())
                part = isPartOf(parent);
            if (!part)
                own += widget;
        }
        return own;
    }

    /// What the control needs to show its caption whole. Buttons ask for more than that.
    static int widthOfCaption(const QWidget *control)
    {
        const auto *button = qobject_cast<const QPushButton *>(control);
        return button ? button->fontMetrics().horizontalAdvance(button->text().remove('&')) + 4
                      : control->minimumSizeHint().width();
    }

    static constexpr QSize UsualSize{1280, 860};
    Form *form;
};

TEST_P(EveryForm, DeclaresATabOrderOfAllItsFieldsAndFollowsIt)
{
    const QList<QWidget *> declared = form->tabOrder();
    for (const QWidget *control : controls())
        if ((control->focusPolicy() & Qt::TabFocus) && !control->isHidden()) {
            EXPECT_TRUE(declared.contains(control)) << "not in the tab order: " << qPrintable(control->objectName());
        }

    QStringList expected, walked;
    for (const QWidget *control : declared)
        if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus))
            expected += control->objectName();
    if (expected.isEmpty())
        return;
    const auto focused = [&] {
        QWidget *widget = QApplication::focusWidget();
        while (widget && !declared.contains(widget))
            widget = widget->parentWidget();
        return widget ? widget->objectName() : QString();
    };
    if (auto *days = form->findChild<TextBox *>("txtDays"))
        days->setText("30"); // without a number the field lets nobody go
    EXPECT_EQ(focused(), expected.first()) << "as it opens";
    for (qsizetype i = 0; i < expected.size(); ++i) {
        walked += focused();
        QTest::keyClick(mdi->windowHandle(), Qt::Key_Tab);
    }
    EXPECT_EQ(focused(), expected.first()) << "round the end";
    QTest::keyClick(mdi->windowHandle(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), expected.last()) << "and back";
    EXPECT_EQ(walked, expected);
}

TEST_P(EveryForm, EnterAndEscActOnlyWhereTheFocusStands)
{
    if (!form->tabOrder().isEmpty() && qobject_cast<QPushButton *>(form->tabOrder().first()))
        return; // a button acts on Enter
    QStringList pressed;
    for (QPushButton *button : form->findChildren<QPushButton *>())
        QObject::connect(button, &QPushButton::clicked, form, [&, button] { pressed += button->objectName(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(mdi->windowHandle(), key);
        settle();
        ASSERT_TRUE(Forms::loaded(form->objectName()));
    }
    EXPECT_TRUE(pressed.isEmpty()) << qPrintable(pressed.join(", "));
}

TEST_P(EveryForm, ShowsEveryControlUnderItsNameWholeInsideItsWindowAndNoneOverAnother)
{
    const QStringList hidden{"cmbCategory", "cmbPrice",   "cmbType",      "cmbCost",
                             "cmbID",       "cmbOrderID", "txtInvoiceID", "CRViewer"};
    const auto place = [this](const QWidget *control) {
        return QRect(control->mapTo(form, QPoint()), control->size());
    };
    const auto check = [&](const char *state) {
        SCOPED_TRACE(state);
        const auto *window = static_cast<QMdiSubWindow *>(form->parentWidget());
        EXPECT_TRUE(window->parentWidget()->rect().contains(window->geometry()));
        const QList<QWidget *> all = controls();
        QSet<QString> names;
        for (const QWidget *control : all) {
            const std::string name = control->objectName().toStdString();
            EXPECT_FALSE(name.empty()) << "a " << control->metaObject()->className() << " without a name";
            EXPECT_FALSE(names.contains(control->objectName())) << "twice: " << name;
            names += control->objectName();
            EXPECT_TRUE(control->isVisible() || hidden.contains(control->objectName())) << name;
            if (!control->isVisible())
                continue;
            EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry())) << name << " falls out";
            EXPECT_TRUE(form->rect().contains(place(control))) << name << " falls out of the window";
            const bool caption =
                qobject_cast<const QLabel *>(control) || qobject_cast<const QAbstractButton *>(control);
            EXPECT_TRUE(!caption || control->width() >= widthOfCaption(control)) << name << " is cut off";
            for (const QWidget *other : all)
                EXPECT_TRUE(other == control || !other->isVisible() || other->isAncestorOf(control) ||
                            control->isAncestorOf(other) || !place(other).intersects(place(control)))
                    << name << " over " << qPrintable(other->objectName());
        }
    };
    EXPECT_LE(form->sizeHint().width(), UsualSize.width());
    const QFontMetrics title(QApplication::font("QMdiSubWindowTitleBar"));
    EXPECT_GE(form->width(), title.horizontalAdvance(form->windowTitle()) + 80) << "between the icon and three marks";
    check("as it opens");
    form->unload();
    settle();
    constexpr QSize InsideTheSmallestDesktopsFrame(1022, 742);
    mdi->resize(InsideTheSmallestDesktopsFrame);
    settle();
    form = Load(QString::fromStdString(GetParam()));
    settle();
    check("on the smallest screen");
    form->parentWidget()->showMaximized();
    settle();
    check("maximised there");
}

std::vector<std::string> everyForm()
{
    registerForms();
    std::vector<std::string> names;
    for (const QString &name : Forms::names())
        names.push_back(name.toStdString());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Program, EveryForm, testing::ValuesIn(everyForm()),
                         [](const auto &form) { return form.param; });
} // namespace
