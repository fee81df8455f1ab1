#pragma once

#include <QGridLayout>
#include <QList>

class QHBoxLayout;
class QPushButton;

/// Labelled fields in aligned columns: how every form of the program looks. Each call adds the next row of a column;
/// a label becomes a QLabel named "Label1", "Label2" ... that lends its text to screen readers.
///
///     auto *fields = new FieldLayout(frame);
///     fields->add("Customer", cmbCustomer);
///     fields->add("City/St/Zip", {txtCity, txtState, txtZip});
///     fields->add("Phone", txtPhone, 1);
class FieldLayout : public QGridLayout
{
    Q_OBJECT
public:
    explicit FieldLayout(QWidget *parent = nullptr);

    void add(const QString &label, QWidget *field, int column = 0);
    /// Several fields on one line; the first takes the room that is left, unless all have a width of their own by now.
    void add(const QString &label, const QList<QWidget *> &fields, int column = 0);
    /// A field under the others with no label of its own, such as a check box.
    void add(QWidget *field, int column = 0);

private:
    void place(const QString &label, QWidget *buddy, QWidget *widget, QLayout *line, int column);
    int nextRow(int column);

    QList<int> m_used; ///< rows filled of each column
};

/// Buttons side by side, all as wide as the widest, standing at the right and, if there are such, at the left.
QHBoxLayout *buttonRow(const QList<QPushButton *> &buttons, const QList<QPushButton *> &atLeft = {});

/// Makes a field wide enough for that many characters, and keeps it that wide.
void setFieldWidth(QWidget *field, int characters);
