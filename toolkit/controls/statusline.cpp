#include "toolkit/controls/statusline.h"

namespace {
std::function<void(const QString &)> statusPlace;
} // namespace

void showStatus(const QString &text)
{
    if (statusPlace)
        statusPlace(text);
}

void setStatusPlace(std::function<void(const QString &text)> place)
{
    statusPlace = std::move(place);
}
