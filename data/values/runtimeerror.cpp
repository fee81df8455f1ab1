#include "data/values/runtimeerror.h"

namespace {

struct Wording
{
    int number;
    const char *text;
};

/// Sorted by number. Those below 1000 come from the runtime and its controls and carry no full stop; the
/// others are the engine's.
constexpr Wording Wordings[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {53, "File not found"},
    {62, "Input past end of file"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {93, "Invalid pattern string"},
    {94, "Invalid use of Null"},
    {380, "Invalid property value"},
    {381, "Subscript out of range"},
    {383, "'Text' property is read-only"},
    {432, "File name or class name not found during Automation operation"},
    {440, "Automation error"},
    {482, "Printer error"},
    {3000, "Reserved error (%1); there is no message for this error."},
    {3010, "Table '%1' already exists."},
    {3020, "Update or CancelUpdate without AddNew or Edit."},
    {3021, "No current record."},
    {3022, "The changes you requested to the table were not successful because they would create duplicate values in "
           "the index, primary key, or relationship. Change the data in the field or fields that contain duplicate "
           "data, remove the index, or redefine the index to permit duplicate entries and try again."},
    {3024, "Could not find file '%1'."},
    {3026, "Not enough space on disk."},
    {3027, "Cannot update. Database or object is read-only."},
    {3031, "Not a valid password."},
    {3043, "Disk or network error."},
    {3044, "'%1' is not a valid path. Make sure that the path name is spelled correctly and that you are connected to "
           "the server on which the file resides."},
    {3045, "Could not use '%1'; file already in use."},
    {3049, "Cannot open database '%1'. It may not be a database that your application recognizes, or the file may be "
           "corrupt."},
    {3051, "The Microsoft Jet database engine cannot open the file '%1'. It is already opened exclusively by another "
           "user, or you need permission to view its data."},
    {3055, "Not a valid file name."},
    {3061, "Too few parameters. Expected %1."},
    {3063, "Duplicate output destination '%1'."},
    {3065, "Cannot execute a select query."},
    {3067, "Query input must contain at least one table or query."},
    {3075, "%1 in query expression '%2'."},
    {3078, "The Microsoft Jet database engine cannot find the input table or query '%1'. Make sure it exists and that "
           "its name is spelled correctly."},
    {3079,
     "The specified field '%1' could refer to more than one table listed in the FROM clause of your SQL statement."},
    {3085, "Undefined function '%1' in expression."},
    {3091, "HAVING clause (%1) without grouping or aggregation."},
    {3093, "ORDER BY clause (%1) conflicts with DISTINCT."},
    {3095, "Cannot have aggregate function in expression (%1)."},
    {3096, "Cannot have aggregate function in WHERE clause (%1)."},
    {3098, "Cannot have aggregate function in GROUP BY clause (%1)."},
    {3099, "Cannot have aggregate function in JOIN operation (%1)."},
    {3103, "Circular reference caused by alias '%1' in query definition's SELECT list."},
    {3112, "Record(s) cannot be read; no read permission on '%1'."},
    {3122, "You tried to execute a query that does not include the specified expression '%1' as part of an aggregate "
           "function."},
    {3127, "The INSERT INTO statement contains the following unknown field name: '%1'. Make sure you have typed the "
           "name correctly, and try the operation again."},
    {3129, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
    {3131, "Syntax error in FROM clause."},
    {3132, "Syntax error in GROUP BY clause."},
    {3134, "Syntax error in INSERT INTO statement."},
    {3135, "Syntax error in JOIN operation."},
    {3138, "Syntax error in ORDER BY clause."},
    {3141, "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or the "
           "punctuation is incorrect."},
    {3142, "Characters found after end of SQL statement."},
    {3144, "Syntax error in UPDATE statement."},
    {3145, "Syntax error in WHERE clause."},
    {3163,
     "The field is too small to accept the amount of data you attempted to add. Try inserting or pasting less data."},
    {3167, "Record is deleted."},
    {3190, "Too many fields defined."},
    {3204, "Database already exists."},
    {3211, "The database engine could not lock table '%1' because it is already in use by another person or process."},
    {3218, "Could not update; currently locked."},
    {3219, "Invalid operation."},
    {3265, "Item not found in this collection."},
    {3290, "Syntax error in CREATE TABLE statement."},
    {3295, "Syntax error in DROP TABLE or DROP INDEX."},
    {3306, "You have written a subquery that can return more than one field without using the EXISTS reserved word in "
           "the main query's FROM clause. Revise the SELECT statement of the subquery to request only one field."},
    {3343, "Unrecognized database format '%1'."},
    {3346, "Number of query values and destination fields are not the same."},
    {3360, "Query is too complex."},
    {3376, "Table '%1' does not exist."},
    {3420, "Object invalid or no longer set."},
    {3421, "Data type conversion error."},
    {3464, "Data type mismatch in criteria expression."},
    {35787, "Can't set value to NULL when CheckBox property = FALSE"},
};

/// Puts the names into the wording in one pass: a name that itself holds "%1" stays as it is.
QString filled(QLatin1String wording, const QStringList &names)
{
    QString text;
    for (qsizetype i = 0; i < wording.size(); ++i) {
        const bool place = wording[i] == u'%' && i + 1 < wording.size();
        if (place)
            text += names.value(wording[++i].unicode() - u'1');
        else
            text += wording[i];
    }
    return text;
}

} // namespace

RuntimeError::RuntimeError(int number, QString description, QString detail)
    : m_number(number), m_description(std::move(description)), m_detail(std::move(detail))
{
    m_what = QByteArray::number(m_number) + ": " + m_description.toUtf8();
    if (!m_detail.isEmpty())
        m_what += " [" + m_detail.toUtf8() + ']';
}

const char *RuntimeError::what() const noexcept
{
    return m_what.constData();
}

RuntimeError runtimeError(int number, const QStringList &names, const QString &detail)
{
    const auto *found = std::lower_bound(std::begin(Wordings), std::end(Wordings), number,
                                         [](const Wording &w, int n) { return w.number < n; });
    if (found == std::end(Wordings) || found->number != number)
        // A mistake of ours, which the first test that comes by finds.
        qFatal("Run-time error %d has no standard wording", number);
    return RuntimeError(number, filled(QLatin1String(found->text), names), detail);
}
