#include "ui/lists.h"

#include "app/locale_text.h"
#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/number_format.h"
#include "ui/text.h"

#include <QObject>

namespace kestrum {

QStringList CombinationNames()
{
    QStringList names;
    for (int i = kEq610; i <= kBasicLoads; ++i) {
        names << ToQt(LoadCombinationName(i));
    }
    return names;
}

QStringList AnnexNames()
{
    QStringList names;
    for (int i = 0; i < kAnnexes; ++i) {
        names << ToQt(AnnexName(i));
    }
    return names;
}

QStringList PsiNames(bool decimalcomma)
{
    QStringList names;
    for (int i = 1; i <= 10; ++i) {
        names << ToQt(ForLocale(FormatNum(i / 10.0, "0.0"), decimalcomma));
    }
    return names;
}

QStringList MaterialNames(const Library& library)
{
    QStringList names;
    for (const Material& material : library.materials) {
        names << ToQt(material.name);
    }
    return names;
}

QStringList BucklingCurveNames()
{
    return {QStringLiteral("Auto"), QStringLiteral("a0"), QStringLiteral("a"),
            QStringLiteral("b"),    QStringLiteral("c"),  QStringLiteral("d")};
}

QStringList SupportNames()
{
    return {QObject::tr("Pinned - pinned"),
            QObject::tr("Pinned - fixed"),
            QObject::tr("Fixed - fixed"),
            QObject::tr("Rotational springs at both ends"),
            QObject::tr("Cantilever, fixed at end 1"),
            QObject::tr("Pinned - rotational spring")};
}

}  // namespace kestrum
