#pragma once

// A real file system of one MiB, seen by this process and its children alone, gone with the test.
// It needs leave to mount: root, or user namespaces.

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace kestrum {

class SmallDisk {
public:
    static constexpr int kPage = 4096;

    SmallDisk()
    {
        static const std::string kOwnMounts = TakeOwnMounts();  // once for the process
        refusal_ = kOwnMounts;
        std::string pattern = (std::filesystem::temp_directory_path() / "kestrum-disk-XXXXXX");
        path_ = mkdtemp(pattern.data());
        if (refusal_.empty()) {
            mounted_ = mount("kestrum-test", path_.c_str(), "tmpfs", 0, "size=1m,mode=0777") == 0;
            refusal_ = mounted_ ? "" : Refused("mount");
        }
    }
    ~SmallDisk()
    {
        if (mounted_) {
            umount2(path_.c_str(), MNT_DETACH);
        }
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    // Why there is no such disk here; empty when there is.
    const std::string& refusal() const { return refusal_; }
    const std::string& path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

    // Fills the disk but for so many pages.
    void FillBut(int pages) const
    {
        const std::string fill = File(kFill);
        std::ofstream(fill, std::ios::binary).flush();
        for (std::ofstream out(fill, std::ios::binary); out;) {
            out.write(std::string(kPage, '\0').data(), kPage).flush();
        }
        const auto full = std::filesystem::file_size(fill) / kPage;
        std::filesystem::resize_file(fill, (full - static_cast<unsigned>(pages)) * kPage);
    }
    void Empty() const { std::filesystem::remove(File(kFill)); }

    // Files beside what fills it.
    std::size_t FilesThere() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            count += entry.path().filename() == kFill ? 0 : 1;
        }
        return count;
    }

private:
    static constexpr const char* kFill = "fill";

    static std::string Refused(const std::string& what)
    {
        return "no small disk: " + what + ": " + std::strerror(errno);
    }

    static std::string TakeOwnMounts()
    {
        const uid_t user = geteuid();
        if (unshare(CLONE_NEWNS) != 0) {
            if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
                return Refused("unshare");
            }
            std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
        }
        if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
            return Refused("mount --make-private");
        }
        return {};
    }

    std::string refusal_, path_;
    bool mounted_ = false;
};

}  // namespace kestrum
