#pragma once

#include <QString>

/// A number printed by a picture such as "$#,##0.00;($#,##0.00)".
QString Format(double number, QStringView picture);
/// Numeric text is converted and printed by the picture; other text is returned unchanged.
QString Format(const QString &text, QStringView picture);

/// The picture of the masked money boxes, of money columns in grids, and of the invoice total.
inline constexpr QStringView MoneyBoxFormat = u"$#,##0.00;($#,##0.00)";
inline constexpr QStringView MoneyGridFormat = u"$#,###.##";
inline constexpr QStringView InvoiceTotalFormat = u"$##,##0.00";
