#pragma once

#include "reportengine/pages/layout.h"
#include "reportengine/rows/dataset.h"
#include <QString>
#include <memory>

class Recordset;
class ReportPages;
class RowSource;
class RowStore;

/// One run of a report: a layout, the rows it was given, and what the routine set in it before the pages are made.
/// Knows no database once ReadRecords has run.
class Report
{
public:
    /// A text object, line or section of the layout that a routine may change. Valid as long as its report.
    class Object
    {
    public:
        /// Replaces the whole text of a text object.
        void SetText(const QString &text);
        /// Hides the object, whose space stays, or the section, which then takes no space.
        void setSuppress(bool suppress);

    private:
        friend class Report;
        Report *m_report = nullptr;
        QString *m_text = nullptr;
        bool *m_suppress = nullptr;
    };

    /// A layout over a dataset; `table` is what its formulas call the dataset.
    Report(Layout layout, const QString &table, Dataset dataset);
    ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    /// Binds an open recordset to the layout's one table; its columns are found by the dataset's field names.
    void SetDataSource(Recordset &data);
    /// The same for rows from elsewhere; `rows` must live until ReadRecords.
    void SetDataSource(RowSource &rows);
    void DiscardSavedData();
    /// Reads all rows now; the recordset may be closed afterwards. Error 440 on a missing column or a formula that
    /// can't be read.
    void ReadRecords();

    /// A named text object, line or section. An unknown name is a programming error.
    Object &object(const QString &name);
    /// Replaces the text of the index-th formula, from 1. What is wrong with it shows when the records are read.
    void setFormulaText(int index, const QString &text);

    const Layout &layout() const;
    const Dataset &dataset() const;
    /// The rows as they were read, in the recordset's order.
    const RowStore &rows() const;
    /// The pages, as the layout and its texts now stand. Nothing is made before it is asked for.
    ReportPages &pages();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
