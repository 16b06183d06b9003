#include "ui/lists.h"

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/number_format.h"
#include "sections/family_table.h"
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

QStringList PsiNames()
{
    QStringList names;
    for (int i = 1; i <= 10; ++i) {
        names << ToQt(FormatNum(i / 10.0, "0.0"));
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

QString FamilyButtonText(int family)
{
    switch (family) {
    case 6:
        return QStringLiteral("SHS");
    case 7:
        return QStringLiteral("RHS");
    case 8:
        return QStringLiteral("CF SHS");
    case 9:
        return QStringLiteral("CF RHS");
    case 10:
        return QStringLiteral("L equal");
    case 11:
        return QStringLiteral("L uneq.");
    case 21:
        return QStringLiteral("I sym.");
    case 22:
        return QStringLiteral("I unsym.");
    case 24:
        return QStringLiteral("HSQ sym.");
    case 25:
        return QStringLiteral("HSQ edge");
    case 27:
        return QStringLiteral("Box unsym.");
    case 28:
        return QStringLiteral("Flat bar");
    case 41:
        return QStringLiteral("General");
    case 51:
        return QStringLiteral("Pl + Fb");
    case 52:
        return QStringLiteral("Pl + L roll.");
    case 53:
        return QStringLiteral("Pl + L weld");
    case 54:
        return QStringLiteral("Pl + Bf");
    case 56:
        return QStringLiteral("Pl + T");
    case 101:
        return QStringLiteral("UB UC UBP");
    case 102:
        return QStringLiteral("J");
    case 103:
        return QStringLiteral("CH PFC");
    default: {
        const FamilyInfo* const info = FindFamily(family);
        return info != nullptr ? ToQt(info->text) : QString();
    }
    }
}

}  // namespace kestrum
