// Ratios of the lines, forces of a frame, the lightest sections: on the threads of the jobs.

#include "ui/members_window.h"

#include "core/file_io.h"
#include "ui/text.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace kestrum {

LineSource MembersWindow::Source() const
{
    return {&desk_.session.library(), base_, model_.sheet().reader(), forces_};
}

void MembersWindow::Cancel()
{
    jobs_.Cancel();
    pending_.clear();
}

void MembersWindow::RateAll()
{
    Cancel();
    model_.ForgetRatings();
    Rate(model_.Unrated());
}

void MembersWindow::Rate(const std::vector<std::size_t>& rows)
{
    const auto source = std::make_shared<const LineSource>(Source());
    for (const std::size_t row : rows) {
        if (!pending_.insert(model_.sheet().At(row).id).second) {
            continue;
        }
        jobs_.Add([this, source, id = model_.sheet().At(row).id,
                   record = model_.sheet().Record(row),
                   name = model_.sheet().NameOf(row)]() -> JobQueue::Taken {
            return [this, id, rating = RateLine(*source, record, name)] {
                pending_.erase(id);
                model_.Keep(id, rating);
            };
        });
    }
    timer_.start();
    RefreshState();
}

void MembersWindow::ChooseForces()
{
    const std::optional<std::string> path = choosefile(tr("Table of forces"), false);
    if (!path) {
        return;
    }
    std::string bytes;
    std::string fault = ReadWholeFile(*path, bytes);
    fault = fault.empty() ? fault : *path + ": " + fault;
    const auto forces = std::make_shared<ForceCases>();
    if (fault.empty()) {
        fault = forces->Take(bytes, FromQt(QFileInfo(ToQt(*path)).fileName()));
    }
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(fault);
        return;
    }
    forces_ = forces;
    RateAll();
}

// Proposed is the series that the line has now: "IPE" of "IPE 300".
void MembersWindow::ChooseSections()
{
    const std::vector<std::size_t> rows = SelectedRows();
    if (rows.empty()) {
        return;
    }
    const auto& columns = model_.sheet().columns();
    const auto at = std::find(columns.begin(), columns.end(), kSection);
    QString proposal = QStringLiteral("all");
    if (at != columns.end()) {
        const QString now =
            ToQt(model_.sheet().Cell(rows.front(), static_cast<std::size_t>(at - columns.begin())));
        proposal = now.isEmpty() ? proposal : now.section(QLatin1Char(' '), 0, 0);
    }
    const std::optional<QString> words = choosepool(proposal);
    std::vector<std::string> wanted;
    for (const QString& word :
         words.value_or(QString()).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        wanted.push_back(FromQt(word.trimmed()));
    }
    if (!wanted.empty()) {
        TakeLightest(rows, wanted);
    }
}

// One step of Undo when all are found.
void MembersWindow::TakeLightest(const std::vector<std::size_t>& rows,
                                 const std::vector<std::string>& words)
{
    struct Found {
        std::uint64_t id;
        LightestLine section;
    };
    const auto found = std::make_shared<std::vector<Found>>();
    const auto source = std::make_shared<const LineSource>(Source());
    refusals_.clear();
    for (const std::size_t row : rows) {
        jobs_.Add([this, source, words, found, count = rows.size(), id = model_.sheet().At(row).id,
                   record = model_.sheet().Record(row),
                   name = model_.sheet().NameOf(row)]() -> JobQueue::Taken {
            return [this, found, count, id, name,
                    section = FindLightestLine(*source, record, name, words)] {
                found->push_back({id, section});
                if (!section.refusal.empty()) {
                    refusals_.push_back(name + ": " + section.refusal);
                }
                if (found->size() < count) {
                    return;
                }
                model_.Change([&](MembersSheet& sheet) {
                    std::vector<std::pair<std::size_t, std::string>> cells;
                    for (std::size_t at = 0; at < sheet.rows(); ++at) {
                        const auto of =
                            std::find_if(found->begin(), found->end(), [&](const Found& one) {
                                return one.id == sheet.At(at).id && one.section.refusal.empty();
                            });
                        if (of != found->end()) {
                            cells.emplace_back(at, of->section.section);
                        }
                    }
                    sheet.SetColumn(std::string(kSection), cells);
                });
                if (!refusals_.empty()) {
                    std::string text;
                    for (const std::string& refusal : refusals_) {
                        text += refusal + "\n";
                    }
                    desk_.session.surroundings().Warn(text);
                }
            };
        });
    }
    timer_.start();
    RefreshState();
}

}  // namespace kestrum
