#include "maint/WriteAside.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"

using namespace vb;

namespace maint {

namespace {

int NumberOf(int err) {
    switch (err) {
    case ENOENT:
    case ENOTDIR: return errPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY: return errPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return errDiskFull;
    case EEXIST: return errFileExists;
    default: return errDeviceIO;
    }
}

[[noreturn]] void Fail(int err, const std::string& path) {
    const int number = NumberOf(err);
    RuntimeError e(number, ErrorDescription(number));
    e.Path = path;
    throw e;
}

int Open(const std::string& path, int flags) {
    int fd;
    do fd = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    while (fd < 0 && errno == EINTR);
    return fd;
}

// 0, or the errno that stopped the copy.
int CopyBytes(int in, int out) {
    // The kernel copies without the bytes passing through here where it can.
    for (;;) {
        const ssize_t n = ::copy_file_range(in, nullptr, out, nullptr, 1 << 30, 0);
        if (n == 0) return 0;
        if (n > 0) continue;
        if (errno == EINTR) continue;
        if (errno != EXDEV && errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) return errno;
        break;
    }
    static char buf[1 << 16];
    for (;;) {
        ssize_t n = ::read(in, buf, sizeof buf);
        if (n == 0) return 0;
        if (n < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        for (ssize_t done = 0; done < n;) {
            const ssize_t w = ::write(out, buf + done, static_cast<std::size_t>(n - done));
            if (w < 0) {
                if (errno == EINTR) continue;
                return errno;
            }
            done += w;
        }
    }
}

}  // namespace

std::string TempBeside(const std::string& target) {
    static std::atomic<int> counter{0};
    return JoinPath(FolderOf(target), "." + FileNameOf(target) + "." + std::to_string(::getpid()) + "." +
                                          std::to_string(counter++) + ".tmp");
}

void CopyDurably(const std::string& from, const std::string& to, bool sync) {
    const int in = Open(from, O_RDONLY);
    if (in < 0) Fail(errno, from);
    const int out = Open(to, O_WRONLY | O_CREAT | O_EXCL);
    if (out < 0) {
        const int err = errno;
        ::close(in);
        Fail(err, to);
    }
    int err = CopyBytes(in, out);
    ::close(in);
    if (!err && sync && ::fsync(out) != 0) err = errno;
    if (::close(out) != 0 && !err) err = errno;
    if (err) {
        ::unlink(to.c_str());
        Fail(err, to);
    }
}

void SyncFile(const std::string& path) {
    const int fd = Open(path, O_RDONLY);
    if (fd < 0) Fail(errno, path);
    const int err = ::fsync(fd) != 0 ? errno : 0;
    ::close(fd);
    if (err) Fail(err, path);
}

void SyncFolder(const std::string& folder) {
    const int fd = Open(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

AsideSet::~AsideSet() {
    for (const auto& [temp, target] : staged_) ::unlink(temp.c_str());
}

void AsideSet::Stage(const std::string& from, const std::string& to) {
    std::string temp = TempBeside(to);
    // Flushed together at Commit: the first flush takes the others' blocks along.
    CopyDurably(from, temp, false);
    staged_.emplace_back(std::move(temp), to);
}

void AsideSet::Commit() {
    for (const auto& [temp, target] : staged_) SyncFile(temp);
    std::vector<std::string> folders;
    while (!staged_.empty()) {
        const auto& [temp, target] = staged_.front();
        if (::rename(temp.c_str(), target.c_str()) != 0) Fail(errno, target);
        committed_.push_back(target);
        if (std::find(folders.begin(), folders.end(), FolderOf(target)) == folders.end())
            folders.push_back(FolderOf(target));
        staged_.erase(staged_.begin());
    }
    for (const std::string& f : folders) SyncFolder(f);
}

}  // namespace maint
