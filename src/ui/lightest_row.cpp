#include "ui/lightest_row.h"

#include "app/box_help.h"
#include "app/lightest.h"
#include "app/locale_text.h"
#include "sections/family_table.h"
#include "ui/form.h"
#include "ui/latest_job.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <memory>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

// Button, tick and answer of one search.
class Search final : public QObject {
public:
    Search(Binder& bind, QWidget* host, std::function<LightestWish(bool both)> wish)
        : QObject(host), session_(bind.session()), wish_(std::move(wish)),
          both_(new QCheckBox(QObject::tr("by &both"))),
          take_(bind.Button(QStringLiteral("lightest"), QObject::tr("&Lightest that passes"),
                            [this] { Start(); })),
          answer_(FaintLabel({})), job_(new LatestJob(this))
    {
        both_->setObjectName(QStringLiteral("lightestboth"));
        both_->setToolTip(QObject::tr("Within all limits by EN 1993-1-1 as written, too"));
        take_->setToolTip(QObject::tr("Takes the lightest section within all limits by the rules "
                                      "of the program; read its notes, too"));
        answer_->setObjectName(QStringLiteral("lightestanswer"));
        answer_->setWordWrap(true);
        answer_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        answer_->hide();
        bind.Follow([this](const ProjectState&) { Follow(); });
    }

    QCheckBox* both() { return both_; }
    QPushButton* take() { return take_; }
    QLabel* answer() { return answer_; }

private:
    void Start()
    {
        const auto search = std::make_shared<LightestSearch>(session_, wish_(both_->isChecked()));
        Say(QObject::tr("Searching ..."));
        found_ = nullptr;
        job_->Run([this, search](const LatestJob::Outdated& outdated, const LatestJob::Hand& hand) {
            search->Run(outdated);
            hand([this, search] { Take(search); });
        });
    }

    // For the member as it is now: another one is searched for anew.
    void Take(const std::shared_ptr<LightestSearch>& search)
    {
        if (!search->Concerns(session_)) {
            Start();
            return;
        }
        Say({});
        if (search->Take(session_)) {
            found_ = search;
            Say(ToQt(ForLocale(search->Text(), session_.decimalcomma())));
        }
    }

    // What was found holds as long as the member stays as it was then.
    void Follow()
    {
        if (found_ != nullptr && !found_->Concerns(session_)) {
            found_ = nullptr;
            Say({});
        }
    }

    void Say(const QString& text)
    {
        answer_->setText(text);
        answer_->setVisible(!text.isEmpty());
    }

    Session& session_;
    std::function<LightestWish(bool)> wish_;
    QCheckBox* both_;
    QPushButton* take_;
    QLabel* answer_;
    LatestJob* job_;
    std::shared_ptr<const LightestSearch> found_;
};

}  // namespace

QWidget* LightestRow(Binder& bind)
{
    auto* const host = new QWidget;
    auto* const column = new QVBoxLayout(host);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap - 2);
    auto* const groups = new ListBox;
    groups->setObjectName(QStringLiteral("cbolightest"));
    groups->setAccessibleName(QObject::tr("Where the lightest section is looked for"));
    groups->setToolTip(groups->accessibleName());
    groups->setFocusPolicy(Qt::StrongFocus);
    groups->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    groups->setMinimumContentsLength(6);
    bind.Follow([groups](const ProjectState& s) {
        QStringList names;
        for (const SectionGroup& group : SectionGroups(s)) {
            names << ToQt(group.name);
        }
        if (groups->count() != names.size() || groups->itemText(0) != names.value(0)) {
            groups->clear();
            groups->addItems(names);
        }
    });
    auto* const search = new Search(bind, host, [&bind, groups](bool both) {
        const auto all = SectionGroups(bind.session().state());
        const auto at = static_cast<std::size_t>(groups->currentIndex());
        return LightestWish{at < all.size() ? all[at] : SectionGroup{}, {}, both};
    });
    auto* const row = new QHBoxLayout;
    row->addWidget(groups, 1);
    row->addWidget(search->both());
    row->addWidget(search->take());
    column->addLayout(row);
    column->addWidget(search->answer());
    return host;
}

QGroupBox* PlateSearch(Binder& bind, int family)
{
    const std::vector<TriedSizes> proposed = ProposedSizes(family);
    if (proposed.empty()) {
        return nullptr;
    }
    QGroupBox* const group = Group(QStringLiteral("frlightest"), QObject::tr("Sizes to try"));
    QVBoxLayout* const column = ColumnOf(group);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap - 2);
    std::vector<std::pair<TriedSizes, QLineEdit*>> boxes;
    int row = 0;
    for (const TriedSizes& size : proposed) {
        auto* const box = new QLineEdit(ToQt(size.sizes));
        const QString label = ToQt(HelpOf(*size.box).label), unit = ToQt(HelpOf(*size.box).unit);
        box->setObjectName(QStringLiteral("try") + ToQt(size.box->id));
        box->setAccessibleName(QObject::tr("Sizes to try of %1, %2").arg(label, unit));
        box->setPlaceholderText(QObject::tr("as it is"));
        box->setToolTip(QObject::tr("200:1200:50 from, to, step;  200,250,300;  plates;  "
                                    "plates:6:40;  empty: as it is"));
        grid->addWidget(Caption(label, box), row, 0);
        grid->addWidget(box, row, 1);
        grid->addWidget(FaintLabel(unit), row, 2);
        boxes.emplace_back(size, box);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    auto* const search = new Search(bind, group, [family, boxes](bool both) {
        LightestWish wish{{std::string(TraitsOf(family).text), {family}}, {}, both};
        for (const auto& [size, box] : boxes) {
            wish.sizes.push_back({size.box, FromQt(box->text().trimmed())});
        }
        return wish;
    });
    for (const auto& [size, box] : boxes) {
        QObject::connect(box, &QLineEdit::returnPressed, search->take(), &QPushButton::click);
    }
    auto* const last = new QHBoxLayout;
    last->addWidget(search->both());
    last->addStretch(1);
    last->addWidget(search->take());
    column->addLayout(grid);
    column->addLayout(last);
    column->addWidget(search->answer());
    return group;
}

}  // namespace kestrum
