#include "app/shell/forms.h"

#include "app/shell/about.h"
#include "app/toolkit/form.h"

namespace {
template <class FormClass> Form *make()
{
    return new FormClass;
}
} // namespace

// The only place that knows all forms; everyone else loads them by name.
void registerForms()
{
    Forms::add(QStringLiteral("frmAbout"), make<frmAbout>);
}
