#pragma once

#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/letterhead.h"

// What the documents that leave the house share: letterhead, address blocks where a window envelope shows them, the
// box of particulars, and the short head of further pages.

/// A formula text that gives name and address in lines, leaving out empty ones. The fields are the dataset's names
/// ("ShipTo", "ShipToAddress1" ...).
QString addressBlock(const QString &name, const QString &address1, const QString &address2, const QString &city,
                     const QString &state, const QString &zip);
QString customerAddress(); ///< of the fields Customer, Address1 ... Zip
QString shipToAddress();   ///< of the fields ShipTo, ShipToAddress1 ... ShipToZip

/// A line of the box of particulars: a caption and a formula text.
struct Particular
{
    QString caption;
    LayoutObject value;         ///< placed by the head
    QString captionSource = {}; ///< a formula text in place of the caption
};

struct DocumentHead
{
    QString title;                                  ///< "Invoice"
    std::vector<Particular> particulars;            ///< at most six
    QString windowCaption, windowAddress;           ///< where a window envelope shows it
    QString besideCaption = {}, besideAddress = {}; ///< the other address, if any
    QString continuation;                           ///< formula text heading the further pages, "Invoice 123"
};

/// The head of the first page and the short one of the others, as two page header sections.
std::vector<Section> documentHead(const DocumentHead &head, double width);

/// The table's head: tinted, the columns' headings as given, repeated on each page.
Section documentColumns(std::vector<LayoutObject> headings, double width);

/// "Caption: ________" to be filled in by hand.
void addSignature(Section &section, QPointF at, double width, const QString &caption);
