#pragma once
// Whole files written beside their place under a temporary name and renamed
// into it only once they are whole and on the disk, so that a target is
// always the old whole file or the new whole file.
#include <string>
#include <utility>
#include <vector>

namespace maint {

// ".<name>.<pid>.<n>.tmp" beside the target: the name the start-up sweep
// recognises as a save a crash interrupted.
std::string TempBeside(const std::string& target);
// Copies `from` to `to` and flushes it to the disk (unless `sync` is false: the
// caller then syncs it with SyncFile); `to` must not exist.
// vb::RuntimeError (with the path) on failure, and nothing is left at `to`.
void CopyDurably(const std::string& from, const std::string& to, bool sync = true);
// fsync of a written file; vb::RuntimeError when the disk refuses.
void SyncFile(const std::string& path);
// fsync of a folder, so that renames in it survive a power cut.
void SyncFolder(const std::string& folder);

// Several files replaced as one: every copy is staged first, and only then
// are they renamed into place. A failure while staging leaves every target
// as it was; the staged files are removed when the set goes out of scope.
class AsideSet {
public:
    AsideSet() = default;
    ~AsideSet();
    AsideSet(const AsideSet&) = delete;
    AsideSet& operator=(const AsideSet&) = delete;
    void Stage(const std::string& from, const std::string& to);
    // Flushes every staged file, then renames in the order staged; the first
    // refused rename throws, and the targets renamed before it stay replaced.
    void Commit();
    // Targets renamed so far by Commit.
    const std::vector<std::string>& Committed() const { return committed_; }

private:
    std::vector<std::pair<std::string, std::string>> staged_;   // temp, target
    std::vector<std::string> committed_;
};

}  // namespace maint
