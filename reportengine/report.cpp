#include "reportengine/report.h"

#include "data/dao/recordset.h"
#include "reportengine/pages/compiledlayout.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/rows/recordsetrows.h"
#include "reportengine/rows/rowstore.h"

struct Report::Private
{
    Private(Layout layout, const QString &table, Dataset dataset)
        : layout(std::move(layout)), table(table), rows(std::move(dataset))
    {
    }

    Layout layout;
    QString table;
    RowStore rows;
    std::unique_ptr<RowSource> ownSource;
    RowSource *source = nullptr;
    std::map<QString, Object> objects;
    std::unique_ptr<CompiledLayout> compiled;
    std::unique_ptr<ReportPages> pages;
};

Report::Report(Layout layout, const QString &table, Dataset dataset)
    : d(std::make_unique<Private>(std::move(layout), table, std::move(dataset)))
{
}

Report::~Report() = default;

void Report::SetDataSource(Recordset &data)
{
    // Only borrowed: the routine goes on owning the recordset and closes it when its rows have been read.
    d->ownSource = std::make_unique<RecordsetRows>(data);
    d->source = d->ownSource.get();
}

void Report::SetDataSource(RowSource &rows)
{
    d->ownSource.reset();
    d->source = &rows;
}

/// Layouts hold no saved rows here; what a former run read goes.
void Report::DiscardSavedData()
{
    d->pages.reset();
    d->rows.clear();
}

void Report::ReadRecords()
{
    d->pages.reset();
    d->compiled = std::make_unique<CompiledLayout>(d->layout, d->table, d->rows.dataset());
    // Formulas are parsed before any row is read: a text that is none fails first.
    if (d->source)
        d->rows.read(*d->source);
    // Let go at once, since the routine closes the recordset and the next run refills the scratch tables behind it.
    d->ownSource.reset();
    d->source = nullptr;
}

/// Pages are made from texts and switches as they stand, so a change makes all of them anew.
void Report::Object::SetText(const QString &text)
{
    Q_ASSERT(m_text);
    *m_text = text;
    m_report->d->pages.reset();
}

void Report::Object::setSuppress(bool suppress)
{
    *m_suppress = suppress;
    m_report->d->pages.reset();
}

/// A name may stand for a section, a placed object or a parameter of formulas. That a routine names none of its layout
/// is a mistake of ours and ends the program.
Report::Object &Report::object(const QString &name)
{
    // In a map, whose entries stay where they are: a routine may hold one while it asks for the next.
    Object &object = d->objects[name];
    object.m_report = this;
    for (TextParameter &parameter : d->layout.parameters) {
        if (parameter.name == name) {
            object.m_text = &parameter.text;
            object.m_suppress = &parameter.suppress;
        }
    }
    for (Section &section : d->layout.sections) {
        if (section.name == name)
            object.m_suppress = &section.suppress;
        for (LayoutObject &placed : section.objects) {
            if (placed.name != name)
                continue;
            // What a value holds there is a formula, which no text may replace.
            object.m_text = placed.kind == LayoutObject::Kind::Text ? &placed.content : nullptr;
            object.m_suppress = &placed.suppress;
        }
    }
    if (!object.m_suppress)
        qFatal("The layout \"%s\" has no object \"%s\"", qPrintable(d->layout.title), qPrintable(name));
    return object;
}

/// Counted from 1, in the order in which the layout lists its formulas.
void Report::setFormulaText(int index, const QString &text)
{
    d->layout.formulas.at(index - 1).text = text;
    d->pages.reset();
    // Not parsed here: a text that is wrong fails when the records are read, as one of the layout's own would.
    d->compiled.reset();
}

const Layout &Report::layout() const
{
    return d->layout;
}

const Dataset &Report::dataset() const
{
    return d->rows.dataset();
}

const RowStore &Report::rows() const
{
    return d->rows;
}

ReportPages &Report::pages()
{
    // Texts and switches are looked up in the layout whenever a page is made; only formulas have to be parsed anew.
    if (!d->compiled)
        d->compiled = std::make_unique<CompiledLayout>(d->layout, d->table, d->rows.dataset());
    if (!d->pages)
        d->pages = std::make_unique<ReportPages>(*d->compiled, d->rows);
    return *d->pages;
}
