#pragma once

#include "data/values/value.h"
#include "toolkit/controls/programfocus.h"
#include <QComboBox>

class ComboList;

/// A combo box of one of the platform's two kinds: a drop-down list, whose text is one of its entries or empty, or
/// an editable drop-down that may hold any text.
class ComboBox : public QComboBox, public FocusListener
{
    Q_OBJECT
public:
    enum class Style { DropDownList, Editable };

    explicit ComboBox(Style style, QWidget *parent = nullptr);

    Style style() const { return m_style; }

    QString text() const;
    /// Drop-down list: selects the first entry of that text (any case) and raises `click`; the empty text
    /// deselects; any other text is error 383. Editable: shows the text and raises `change` if it differs.
    void setText(const QString &text);

    /// -1 when no entry is selected.
    int listIndex() const;
    /// Selects an entry and raises `click`, also when it was selected already; -1 deselects; beyond the list is
    /// error 380.
    void setListIndex(int index);

    int listCount() const;
    /// An entry's text; the empty text for an index outside the list.
    QString list(int index) const;
    /// Appends an entry; Null is error 94.
    void addItem(const Value &item);
    /// Appends many at once.
    void addItems(const QStringList &items);
    /// Index of the first entry that starts with `prefix`, any case, or -1.
    int findString(const QString &prefix) const;

    void showPopup() override;
    void hidePopup() override;
    void focusGained() override { emit gotFocus(); }
    void focusLost() override { emit lostFocus(); }

signals:
    void change(); ///< the text of an editable box changed, by key or by assignment
    void click();  ///< an entry was selected, by the user or by the program
    void gotFocus();
    void lostFocus();
    /// A character was typed; a slot that sets it to 0 swallows it.
    void keyPress(int &keyAscii);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeEditable();
    void append(const QStringList &items);
    void showIndex(int index);
    int listWidth() const;
    bool typed(const QKeyEvent &event);
    bool listKeyPressed(const QKeyEvent &event);
    void showInList(int index);
    void selectByFirstLetter(QChar letter);
    void indexChanged(int index);
    void picked();

    const Style m_style;
    ComboList *m_list;
    bool m_assigning = false; ///< the program changes the index, which raises its events itself
    bool m_clickDone = false; ///< the user's change of the index has raised `click` already
};
