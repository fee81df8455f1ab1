#include "toolkit/controls/combotypeahead.h"

#include "data/values/clock.h"
#include "toolkit/controls/combobox.h"
#include <QPointer>

namespace {
/// One search for all combo boxes of all forms: a key in another box starts a new one.
struct Search
{
    double lastKeyTime = 0;
    QString searchText;
    QPointer<ComboBox> lastCombo;
};

Search search;
} // namespace

void ComboTypeAhead(ComboBox &combo, int &keyAscii, double seconds)
{
    // After midnight the idle time is negative, which counts as not expired. Backspace, Esc and Enter are characters
    // like any other: collected, found nowhere, and in the way until the search expires. Both are meant.
    const double idle = Clock::secondsSinceMidnight() - search.lastKeyTime;
    const bool expired = idle >= seconds;
    if (search.lastCombo == &combo && !expired) {
        search.searchText += QChar(keyAscii);
    } else {
        search.searchText = QChar(keyAscii);
        search.lastCombo = &combo;
    }
    const int found = combo.findString(search.searchText);
    if (found >= 0)
        combo.setListIndex(found);
    keyAscii = 0;
    search.lastKeyTime = Clock::secondsSinceMidnight();
}
