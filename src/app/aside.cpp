#include "app/aside.h"

#include "app/file_commands.h"
#include "app/session.h"
#include "app/state_text.h"
#include "core/file_io.h"
#include "core/project_inputs.h"
#include "core/sha256.h"
#include "core/utf8_path.h"
#include "engine/new_project.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <exception>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

namespace kestrum {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHead = "kestrum-ec3 unsaved work 1", kEnding = ".unsaved";
constexpr std::string_view kTableHead = "kestrum-ec3 unsaved table 1";
constexpr std::size_t kTable = static_cast<std::size_t>(-1);  // the document of the table

// Nobody else's name.
std::string NewStem()
{
    std::random_device random;
    return std::to_string(random()) + "-" + std::to_string(random());
}

// Head, digest, whether half read, the fields.
std::string TextOf(const UnsavedWork& work)
{
    return std::string(kHead) + "\n" + work.digest + "\n" + (work.halfread ? "half" : "whole") +
           "\n" + StateText(work.state);
}

// Head, digest, path, the table.
std::string TextOf(const UnsavedTable& table)
{
    return std::string(kTableHead) + "\n" + table.digest + "\n" + table.path + "\n" + table.text;
}

std::string_view NextLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

// Empty, or what is wrong with it.
std::string Read(std::string_view text, UnsavedWork& work)
{
    if (NextLine(text) != kHead) {
        return "is not unsaved work of this version";
    }
    work.digest = NextLine(text);
    work.halfread = NextLine(text) == "half";
    const std::string fault = ReadStateText(*work.state, text);
    return fault.empty() ? fault : "cannot be read: " + fault;
}

bool Read(std::string_view text, UnsavedTable& table)
{
    if (NextLine(text) != kTableHead) {
        return false;
    }
    table.digest = NextLine(text);
    table.path = NextLine(text);
    table.text = text;
    return true;
}

std::string TimeText(fs::file_time_type time)
{
    const auto age = fs::file_time_type::clock::now() - time;
    const std::time_t at = std::chrono::system_clock::to_time_t(
        std::chrono::system_clock::now() -
        std::chrono::duration_cast<std::chrono::system_clock::duration>(age));
    std::array<char, 40> text{};
    const std::tm* const local = std::localtime(&at);
    const std::size_t size =
        local != nullptr ? std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", local) : 0;
    return {text.data(), size};
}

void Remove(const std::string& path)
{
    std::error_code ignored;
    fs::remove(Utf8Path(path), ignored);
}

}  // namespace

Aside::Aside(std::string folder)
    : folder_(std::move(folder)), stem_(NewStem()), thread_([this] { Run(); })
{
}

Aside::~Aside()
{
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

void Aside::Keep(std::size_t document, std::size_t step, UnsavedWork work)
{
    Keep(document, step, Writer([work = std::move(work)] { return TextOf(work); }));
}

void Aside::KeepTable(std::size_t step, std::function<UnsavedTable()> table)
{
    Keep(kTable, step, Writer([table = std::move(table)] { return TextOf(table()); }));
}

void Aside::DropTable()
{
    Drop(kTable);
}

void Aside::Keep(std::size_t document, std::size_t step, Writer writer)
{
    const std::scoped_lock lock(mutex_);
    const auto [at, added] = kept_.try_emplace(document, step);
    if (!added && std::exchange(at->second, step) == step) {
        return;
    }
    waiting_[document] = std::move(writer);
    wake_.notify_all();
}

void Aside::Drop(std::size_t document)
{
    const std::scoped_lock lock(mutex_);
    if (kept_.erase(document) != 0) {
        waiting_[document] = std::nullopt;
        wake_.notify_all();
    }
}

void Aside::Settle()
{
    std::unique_lock lock(mutex_);
    settled_.wait(lock, [this] { return waiting_.empty() && !busy_; });
}

std::string Aside::problem() const
{
    const std::scoped_lock lock(mutex_);
    return problem_;
}

void Aside::Run()
{
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (waiting_.empty()) {
            return;
        }
        const auto work = std::exchange(waiting_, {});
        busy_ = true;
        lock.unlock();
        for (const auto& [document, content] : work) {
            Do(document, content);
        }
        lock.lock();
        busy_ = false;
        settled_.notify_all();
        wake_.wait_for(lock, kPause, [this] { return ending_; });
    }
}

// Of the thread, without the mutex.
void Aside::Do(std::size_t document, const std::optional<Writer>& writer)
{
    std::string fault;
    try {
        std::unique_ptr<File>& file = files_[document];
        if (!writer) {
            if (file) {
                Remove(file->path);
            }
            files_.erase(document);
            return;
        }
        if (!file) {
            std::error_code ignored;
            if (fs::create_directories(Utf8Path(folder_), ignored)) {
                fs::permissions(Utf8Path(folder_), fs::perms::owner_all, ignored);
            }
            file = std::make_unique<File>();
            file->path =
                Utf8Name(Utf8Path(folder_) /
                         Utf8Path(stem_ + "-" + std::to_string(document) + std::string(kEnding)));
            fault = file->lock.Take(file->path);
        }
        if (fault.empty()) {
            fault = file->lock.Write((*writer)());
        }
        fault = fault.empty() ? fault : file->path + ": " + fault;
    } catch (const std::exception& exception) {
        fault = exception.what();
    }
    const std::scoped_lock lock(mutex_);
    problem_ = std::move(fault);
}

std::vector<LeftWork> FindLeftWork(const std::string& folder)
{
    std::vector<std::pair<fs::file_time_type, LeftWork>> found;
    std::error_code fault;
    for (fs::directory_iterator at(Utf8Path(folder), fault), end; !fault && at != end;
         at.increment(fault)) {
        std::error_code unknown;
        const fs::file_time_type time = at->last_write_time(unknown);
        LeftWork work{
            Utf8Name(at->path()), {}, false, TimeText(time), std::make_unique<FileLock>()};
        std::string bytes;
        if (!work.path.ends_with(kEnding) ||
            !work.lock->Take(work.path, std::chrono::milliseconds(0)).empty() ||
            !ReadLockedFile(work.path, bytes).empty()) {
            continue;
        }
        UnsavedWork content;
        UnsavedTable table;
        work.table = Read(bytes, table);
        if (work.table || Read(bytes, content).empty()) {
            work.project = work.table ? table.path : InputsOf(content.state).filename;
            found.emplace_back(time, std::move(work));
        }
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<LeftWork> works;
    for (auto& [time, work] : found) {
        works.push_back(std::move(work));
    }
    return works;
}

bool TakeUp(Session& session, LeftWork& work)
{
    std::string bytes;
    UnsavedWork content;
    content.state = StartState(session.library());
    std::string fault = ReadLockedFile(work.path, bytes);
    if (fault.empty()) {
        fault = Read(bytes, content);
    }
    if (!fault.empty()) {
        session.surroundings().Warn(work.path + ": " + fault);
        return false;
    }
    session.BeginDocument("unsaved work", true);
    session.Replace(content.state);
    if (content.halfread) {
        InputsOf(session.edit()).filename =
            kNewFile;  // the file must not be overwritten with half of it
    }
    session.BeginProject();
    const std::string& project = InputsOf(session.state()).filename;
    std::string ondisk;
    session.disk.Forget();
    if (project != kNewFile && ReadWholeFile(project, ondisk).empty() &&
        Sha256(ondisk) == content.digest) {
        session.disk.Know(std::move(ondisk));
    }
    session.SetTitle(session.TitleStem() + ": " + project);
    session.Calculate();
    if (session.aside != nullptr) {
        session.aside->Settle();
        if (!session.aside->problem().empty()) {
            return true;  // its file stays
        }
    }
    Discard(work);
    return true;
}

std::string ReadTable(const LeftWork& work, UnsavedTable& table)
{
    std::string bytes;
    const std::string fault = ReadLockedFile(work.path, bytes);
    return !fault.empty() ? fault : Read(bytes, table) ? "" : "holds no table of members";
}

void Discard(LeftWork& work)
{
    Remove(work.path);
    work.lock.reset();
}

}  // namespace kestrum
