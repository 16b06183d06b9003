// The equations behind a row of the result panel: formula, numbers, value and clause by both sets
// of rules, as the calculation report has them.

#include "calculation/check_equations.h"
#include "core/check_text.h"
#include "core/project_state.h"
#include "ui/forms.h"
#include "ui/picture_menu.h"
#include "ui/standard_desk.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace kestrum {

namespace {

constexpr char kManual[] = "Kestrum EC3 Theory Manual.pdf";
constexpr double kWidth = 165;    // mm, of the equations
constexpr double kLetters = 3.3;  // mm, of their letters, which get the size of the system font

// The row that was asked for; one that shows something before any was.
std::optional<ResultRow> ShownRow(const Desk& desk, const ProjectState& s)
{
    if (desk.row && !s.checklist.row(*desk.row).empty()) {
        return desk.row;
    }
    for (std::size_t i = 0; i < kResultRows; ++i) {
        const auto row = static_cast<ResultRow>(i);
        if (IsJudged(s.checklist.row(row))) {
            return row;
        }
    }
    return std::nullopt;
}

CheckNode NodeOf(const Desk& desk)
{
    const ProjectState& s = desk.session.shown();
    const StandardDesk& standard = *desk.standard;
    const std::optional<ResultRow> row = ShownRow(desk, s);
    // With the costs of the deviations as soon as they are known.
    const standard::StandardResult& result =
        standard.program() != nullptr ? standard.result() : standard.shown();
    return row ? EquationsOf(desk.session.library(), standard.given(), s, result,
                             s.checklist.governs(*row))
               : CheckNode{};
}

// Equations as a picture that keeps its size, and as text for the clipboard and for readers of the
// screen.
class EquationView {
public:
    EquationView(Desk& desk, const QString& name, const QString& title)
        : desk_(desk), head_(new QLabel(title)), picture_(new Picture(name))
    {
        QFont bold = head_->font();
        bold.setBold(true);
        head_->setFont(bold);
        picture_->setAccessibleName(title);
        picture_->setFocusPolicy(Qt::TabFocus);
        picture_->menu = [this](const Drawing& drawing, QPoint at) {
            PictureMenu(drawing, "equations", desk_.session, picture_, at, text_);
        };
    }

    void AddTo(QVBoxLayout* column)
    {
        column->addWidget(head_);
        column->addWidget(picture_);
    }

    void Show(std::span<const Equation> equations)
    {
        const char decimal = desk_.session.decimalcomma() ? ',' : '.';
        constexpr double kAround = 2;  // mm
        const Drawing set = DrawEquations(equations, kWidth, decimal);
        Drawing drawing;
        drawing.width = set.width + 2 * kAround;
        drawing.height = set.height + 2 * kAround;
        Place(drawing, set, {kAround, kAround});
        const double scale = SystemFontSize() / kLetters;
        picture_->setFixedSize(qCeil(drawing.width * scale), qCeil(drawing.height * scale));
        picture_->Show(std::move(drawing));
        picture_->SetFaded(desk_.session.halfread());
        text_ = FromQt(
            QTextDocumentFragment::fromHtml(ToQt(RichText(equations, decimal))).toPlainText());
        picture_->setAccessibleDescription(ToQt(text_));
        head_->setVisible(!equations.empty());
        picture_->setVisible(!equations.empty());
    }

private:
    Desk& desk_;
    QLabel* head_;
    Picture* picture_;
    std::string text_;
};

}  // namespace

Form* MakeEquations(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "equations", QObject::tr("Equations"), parent);
    const auto program = std::make_shared<EquationView>(desk, QStringLiteral("equationsprogram"),
                                                        QObject::tr("By the rules of the program"));
    const auto standard = std::make_shared<EquationView>(desk, QStringLiteral("equationsstandard"),
                                                         QObject::tr("By EN 1993-1-1 as written"));
    program->AddTo(form->body());
    standard->AddTo(form->body());
    form->body()->addStretch(1);
    QPushButton* const manual = form->bind().Button(
        QStringLiteral("equationsmanual"), QObject::tr("Theory &manual"),
        [&desk] { desk.manual(kManual + ("#nameddest=" + NodeOf(desk).anchor)); });
    manual->setToolTip(QObject::tr("Opens the theory manual at the chapter on this check"));
    const auto show = [&desk, form, program, standard, manual] {
        const CheckNode node = NodeOf(desk);
        form->setWindowTitle(node.name.empty() ? QObject::tr("Equations")
                                               : QObject::tr("Equations: %1").arg(ToQt(node.name)));
        program->Show(node.equations);
        standard->Show(node.standard);
        manual->setEnabled(!node.anchor.empty());
    };
    form->bind().Follow([show](const ProjectState&) { show(); });
    desk.rowchanged = [form, show] {
        if (form->isVisible()) {
            show();
        }
    };
    form->AddButtons()->insertWidget(0, manual);
    return form;
}

}  // namespace kestrum
