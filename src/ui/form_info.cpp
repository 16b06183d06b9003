#include "app/locale_text.h"
#include "core/version.h"
#include "report/choice_pictures.h"
#include "report/section_figure.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kestrum {

namespace {

// A text, a picture if there is one, and a button that closes.
Form* MakeInfo(Desk& desk, QWidget* parent, std::string_view name, const QString& title,
               const QString& text, const Drawing* drawing = nullptr)
{
    auto* const form = new Form(desk, name, title, parent);
    if (drawing != nullptr) {
        auto* const picture = new Picture(QStringLiteral("picinfo"));
        picture->Show(*drawing);
        picture->setMinimumHeight(120);
        form->body()->addWidget(picture, 1);
    }
    auto* const label = new QLabel(ToQt(ForLocale(FromQt(text), desk.session.decimalcomma())));
    label->setObjectName(QStringLiteral("lblinfo"));
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    label->setMinimumWidth(420);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->body()->addWidget(label);
    form->AddButtons();
    return form;
}

}  // namespace

Form* MakeAbout(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "about", QObject::tr("About Kestrum - EC3"), parent);
    auto* const row = new QHBoxLayout;
    auto* const picture = new Picture(QStringLiteral("picabout"));
    picture->Show(SectionIcon(1));
    picture->setFixedSize(84, 84);
    row->addWidget(picture);
    auto* const column = new QVBoxLayout;
    auto* const name = new QLabel(QStringLiteral("Kestrum EC3"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kTitleText);
    large.setBold(true);
    name->setFont(large);
    column->addWidget(name);
    auto* const version = new QLabel(QStringLiteral("Version %1 ").arg(ToQt(kVersion)));
    version->setObjectName(QStringLiteral("lblversion"));
    column->addWidget(version);
    column->addWidget(FaintLabel(QObject::tr("Design of steel members to EN 1993-1-1. Dorvane")));
    column->addStretch(1);
    row->addLayout(column, 1);
    form->body()->addLayout(row);
    form->AddButtons();
    return form;
}

Form* MakeInfoPsi(Desk& desk, QWidget* parent)
{
    return MakeInfo(
        desk, parent, "InfoPsi", QObject::tr("Combination values"),
        QObject::tr(
            "<p>The combination values ψ of EN 1990 reduce a variable load that acts together with "
            "another one. They are chosen by the category of the load (EN 1990, Table A1.1).</p>"
            "<p><b>Q1</b>: value of the leading variable load. It is used in Eq 6.10 and Eq "
            "6.10a.<br>"
            "<b>Q2</b>: value of the other variable loads. It is used in Eq 6.10a, Eq 6.10b and "
            "the "
            "serviceability combination Eq 6.14.</p>"
            "<table cellspacing='0' cellpadding='3'>"
            "<tr><td>Dwellings, offices</td><td>0.7</td></tr>"
            "<tr><td>Shops, congregation areas</td><td>0.7</td></tr>"
            "<tr><td>Storage</td><td>1.0</td></tr>"
            "<tr><td>Snow, altitude up to 1000 m</td><td>0.5</td></tr>"
            "<tr><td>Snow, Nordic countries or above 1000 m</td><td>0.7</td></tr>"
            "<tr><td>Wind, temperature</td><td>0.6</td></tr></table>"
            "<p>The national annex may give other values.</p>"));
}

Form* MakeInfoUls(Desk& desk, QWidget* parent)
{
    return MakeInfo(
        desk, parent, "InfoULS", QObject::tr("Load factors"),
        QObject::tr(
            "<p>With the combination <b>ULS/SLS</b> the loads are multiplied with the factors "
            "entered here, with none of an annex.</p>"
            "<p><b>ULS</b>: factors of the ultimate limit state, for section and buckling control."
            "<br><b>SLS</b>: factors of the serviceability limit state, for the deflections.</p>"
            "<p><b>G</b>: permanent loads and self-weight.<br>"
            "<b>Q1</b>: leading variable load.<br><b>Q2</b>: other variable loads.</p>"
            "<p>A combination value of a variable load has to be part of its factor.</p>"));
}

Form* MakeInfoVipping(Desk& desk, QWidget* parent)
{
    const Drawing picture = LateralRestraintPicture(2);
    return MakeInfo(
        desk, parent, "InfoVipping", QObject::tr("Lateral torsional buckling"),
        QObject::tr(
            "<p>The critical moment follows the length factor k (rotation about the weak axis and "
            "warping at the ends are taken alike), the shape of the moment diagram (C1), the level "
            "at "
            "which the load acts (C2) and the asymmetry of the section (C3).</p>"
            "<p>A loaded member without restraints takes its C factors by supports and moment "
            "shape. With restraints of the compression flange, or with given end forces, every "
            "part "
            "between two restraints is checked with its own end moments, and the worst one "
            "governs.</p>"
            "<p>The restraints divide the member evenly.</p>"),
        &picture);
}

Form* MakeInfoKestrum(Desk& desk, QWidget* parent)
{
    return MakeInfo(
        desk, parent, "InfoKESTRUM", QObject::tr("Kestrum EC3"),
        QObject::tr(
            "<p>Kestrum EC3 designs one steel member: section control at points along the member, "
            "flexural, torsional and lateral torsional buckling with interaction, deflections.</p>"
            "<p><b>1</b> Choose a section from the tabs above; its form follows every change.<br>"
            "<b>2</b> Enter length, supports and buckling lengths.<br>"
            "<b>3</b> Enter loads (a click on a diagram opens them) or given end forces.<br>"
            "<b>4</b> Read the ratios IR; each must not exceed 1.0.</p>"
            "<p>Forces in kN, moments in kNm, lengths in m, section dimensions in mm. Axial "
            "compression and sagging moments are positive. y is the strong axis of the section, z "
            "the weak one; loads along z bend about y.</p>"));
}

Form* MakeInfoEndSupport(Desk& desk, QWidget* parent)
{
    return MakeInfo(
        desk, parent, "infoendsupport", QObject::tr("End supports and web stiffeners"),
        QObject::tr(
            "<p>The shear resistance of slender webs depends on how the web ends at the support "
            "(EN 1993-1-5, 5.3 and 9.3).</p>"
            "<p><b>Rigid end post</b>: two double-sided stiffeners, or an inserted section, that "
            "anchor the tension field of the web. At least two web stiffeners at the support.<br>"
            "<b>Non-rigid end post</b>: one stiffener, or the web alone.</p>"
            "<p>Vertical web stiffeners at the spacing a divide the web into panels. A shorter "
            "panel "
            "buckles at a higher shear stress.</p>"));
}

Form* MakeSectionPicture(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "sectionpicture", QObject::tr("Section"), parent);
    Picture* const picture = form->bind().Figure(QStringLiteral("picenlarged"), DrawSection);
    picture->setMinimumSize(520, 520);
    form->body()->addWidget(picture, 1);
    form->AddButtons();
    return form;
}

}  // namespace kestrum
