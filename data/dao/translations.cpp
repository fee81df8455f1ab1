#include "data/dao/translations.h"

namespace {

/// Translations of one shape that are kept.
constexpr size_t maxVariants = 16;

bool sameConstant(const jetsql::Token &a, const jetsql::Token &b)
{
    return a.number == b.number && a.text == b.text;
}

} // namespace

struct Translations::Known
{
    Known(const QString &sql, const Catalog &catalog, const jetsql::Dialect &dialect, std::vector<jetsql::Token> made)
        : translation(jetsql::translate(sql, catalog, dialect)), constants(std::move(made)), placed(constants.size())
    {
        for (const jetsql::Place &place : translation.places)
            placed[size_t(place.constant)] = true;
    }

    /// Whether a statement of this shape with those constants is translated to the same.
    bool fits(const std::vector<jetsql::Token> &others) const
    {
        for (size_t i = 0; i < constants.size(); ++i) {
            if (!placed[i] && !sameConstant(constants[i], others[i]))
                return false;
        }
        return std::all_of(translation.places.begin(), translation.places.end(), [&others](const jetsql::Place &place) {
            return place.fits(others[size_t(place.constant)]);
        });
    }

    static Translated with(std::shared_ptr<const Known> known, const std::vector<jetsql::Token> &constants)
    {
        std::vector<Value> values;
        values.reserve(known->translation.places.size());
        for (const jetsql::Place &place : known->translation.places)
            values.push_back(place.valueOf(constants[size_t(place.constant)]));
        const jetsql::Translation *translation = &known->translation;
        return {{std::move(known), translation}, std::move(values)};
    }

    jetsql::Translation translation;
    std::vector<jetsql::Token> constants; ///< of the statement it was made from
    std::vector<bool> placed;             ///< by constant: whether it has a place
};

Translated Translations::of(const QString &sql, const Catalog &catalog)
{
    jetsql::Outline outline = jetsql::outlineOf(sql);
    KnownList *list = outline.shape.isEmpty() ? nullptr : m_byShape.find(outline.shape);
    if (list) {
        const auto fitting = std::find_if(list->rbegin(), list->rend(),
                                          [&outline](const auto &known) { return known->fits(outline.constants); });
        if (fitting != list->rend())
            return Known::with(*fitting, outline.constants);
    }
    auto made = std::make_shared<const Known>(sql, catalog, m_dialect, outline.constants);
    if (!outline.shape.isEmpty()) {
        if (!list)
            list = &m_byShape.insert(outline.shape, {});
        if (list->size() == maxVariants)
            list->erase(list->begin());
        list->push_back(made);
    }
    return Known::with(std::move(made), outline.constants);
}
