#pragma once

#include "data/dao/recordset.h"
#include <QString>
#include <memory>

/// One run of a report: a layout, the rows it was given, and what the routine set in it before the pages are made.
/// Knows no database once ReadRecords has run.
class Report
{
public:
    /// A text object, line or section of the layout that a routine may change.
    class Object
    {
    public:
        void SetText(const QString &text);
        void setSuppress(bool suppress);
        // ...
    };

    /// `designer` is the name of one of the catalogue's layouts, "crptPickTicket".
    explicit Report(const QString &designer);
    ~Report();

    /// Binds an open recordset to the layout's one table; its columns are found by the dataset's field names.
    void SetDataSource(Recordset &data);
    void DiscardSavedData();
    /// Reads all rows now, from the first; the recordset may be closed afterwards. Error on a missing column.
    void ReadRecords();

    /// A named text object, line or section. An unknown name is a programming error.
    Object &object(const QString &name);
    /// Replaces the text of the index-th formula, from 1.
    void setFormulaText(int index, const QString &text);

    /// Prints without a prompt, two copies, to the system's default printer; with no printer on the machine as a
    /// PDF into `printed/` beside the program. Error 482 when printing fails.
    void PrintOut();
};
