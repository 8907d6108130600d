#include "platform/vb/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"

namespace vb {

namespace {

// Windows refuses a read-only or busy file with "Path/File access error";
// "Permission denied" is kept for a file held by someone else's lock.
int ErrnoNumber(int err, int missing) {
    switch (err) {
    case ENOENT: return missing;
    case ENOTDIR: return errPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENOTEMPTY:
    case EEXIST: return errPathFileAccess;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG: return errDiskFull;
    case EMFILE:
    case ENFILE: return errTooManyFiles;
    case ENAMETOOLONG:
    case EINVAL: return errBadFileName;
    case EAGAIN:
    case EBUSY:
    case ETXTBSY: return errPermissionDenied;
    case EXDEV: return errRenameAcrossDrives;
    default: return errDeviceIO;
    }
}

// The error carries the file it happened to, so whoever reports it can name it.
[[noreturn]] void RaiseErrno(int err, const std::string& path, int missing = errPathNotFound) {
    const int number = ErrnoNumber(err, missing);
    RuntimeError e(number, ErrorDescription(number));
    e.Path = path;
    throw e;
}

bool IsDirectory(const std::string& path) {
    struct stat st;
    return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

// A missing file whose folder exists is "File not found"; else "Path not found".
int MissingNumber(const std::string& path) {
    const std::string folder = FolderOf(path);
    return folder.empty() || IsDirectory(folder) ? errFileNotFound : errPathNotFound;
}

int OpenRetry(const std::string& path, int flags, mode_t mode = 0666) {
    int fd;
    do fd = ::open(path.c_str(), flags | O_CLOEXEC, mode);
    while (fd < 0 && errno == EINTR);
    return fd;
}

// Writes all of data; returns 0 or the errno that stopped it.
int WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return 0;
}

void SyncFolder(const std::string& path) {
    const std::string folder = FolderOf(path);
    const int fd = OpenRetry(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

bool WildMatch(const std::string& pattern, const std::string& name) {
    std::size_t p = 0, n = 0, star = std::string::npos, mark = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || FoldAscii(pattern[p]) == FoldAscii(name[n]))) {
            ++p;
            ++n;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            mark = n;
        } else if (star != std::string::npos) {
            p = star + 1;
            n = ++mark;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

// As on DOS, "name.*" also takes a name without any extension.
bool DirMatch(const std::string& pattern, const std::string& name) {
    if (WildMatch(pattern, name)) return true;
    return pattern.size() >= 2 && pattern.compare(pattern.size() - 2, 2, ".*") == 0 &&
           name.find('.') == std::string::npos && WildMatch(pattern.substr(0, pattern.size() - 2), name);
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// Feeds the file to `sink` chunk by chunk until its end. Returns 0, the read's
// errno, or the first non-zero result of `sink`.
template <class Sink>
int ReadChunks(int fd, Sink&& sink) {
    char chunk[65536];
    for (;;) {
        const ssize_t n = ::read(fd, chunk, sizeof chunk);
        if (n == 0) return 0;
        if (n < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (const int err = sink(static_cast<const char*>(chunk), static_cast<std::size_t>(n))) return err;
    }
}

std::string ReadWhole(const std::string& path) {
    const int fd = OpenRetry(path, O_RDONLY);
    if (fd < 0) RaiseErrno(errno, path, MissingNumber(path));
    struct stat st;
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        ::close(fd);
        Raise(errPathFileAccess);
    }
    std::string data;
    data.reserve(static_cast<std::size_t>(st.st_size));
    const int err = ReadChunks(fd, [&data](const char* chunk, std::size_t n) {
        data.append(chunk, n);
        return 0;
    });
    ::close(fd);
    if (err) RaiseErrno(err, path);
    return data;
}

}  // namespace

// ---------------------------------------------------------------- TextReader

TextReader::~TextReader() { Close(); }

void TextReader::Open(const std::string& path) {
    if (open_) Raise(errFileAlreadyOpen);
    data_ = ReadWhole(path);
    pos_ = 0;
    open_ = true;
}

void TextReader::OpenText(std::string text) {
    if (open_) Raise(errFileAlreadyOpen);
    data_ = std::move(text);
    pos_ = 0;
    open_ = true;
}

void TextReader::Close() {
    data_.clear();
    data_.shrink_to_fit();
    pos_ = 0;
    open_ = false;
}

bool TextReader::Eof() const {
    if (!open_) Raise(errBadFileName);
    const std::size_t left = data_.size() - pos_;
    if (left == 0) return true;
    if (left == 1) return IsLineEnd(data_[pos_]);
    return left == 2 && data_[pos_] == '\r' && data_[pos_ + 1] == '\n';
}

std::string TextReader::InputString() { return Field(true); }

std::string TextReader::InputStringOnLine() { return Field(false); }

std::string TextReader::Field(bool quoteCrossesLines) {
    if (Eof()) Raise(errInputPastEnd);
    const std::size_t size = data_.size();
    while (pos_ < size && (data_[pos_] == ' ' || data_[pos_] == '\t')) ++pos_;
    std::string field;
    if (pos_ < size && data_[pos_] == '"') {
        const std::size_t close =
            quoteCrossesLines ? data_.find('"', pos_ + 1) : data_.find_first_of("\"\r\n", pos_ + 1);
        const std::size_t end = close == std::string::npos ? size : close;
        field = data_.substr(pos_ + 1, end - pos_ - 1);
        pos_ = end < size && data_[end] == '"' ? end + 1 : end;
        // Whatever follows the closing quote up to the separator is dropped.
        while (pos_ < size && data_[pos_] != ',' && !IsLineEnd(data_[pos_])) ++pos_;
    } else {
        std::size_t end = pos_;
        while (end < size && data_[end] != ',' && !IsLineEnd(data_[end])) ++end;
        field = data_.substr(pos_, end - pos_);
        pos_ = end;
    }
    if (pos_ < size) {
        if (data_[pos_] == '\r' && pos_ + 1 < size && data_[pos_ + 1] == '\n') ++pos_;
        ++pos_;
    }
    return field;
}

long TextReader::InputLong() {
    const double v = std::nearbyint(Val(InputString()));   // to even, as the runtime assigns
    if (!(v >= static_cast<double>(std::numeric_limits<long>::min()) &&
          v < static_cast<double>(std::numeric_limits<long>::max())))
        Raise(errOverflow);
    return static_cast<long>(v);
}


bool TextReader::InputBool() {
    const std::string t = Trim(InputString());
    const std::string u = UCase(t);
    if (u == "TRUE" || u == "#TRUE#") return true;
    if (u.empty() || u == "FALSE" || u == "#FALSE#") return false;
    if (IsNumeric(t)) return Val(t) != 0;
    Raise(errTypeMismatch);
}

std::string TextReader::LineInput() {
    if (Eof()) Raise(errInputPastEnd);
    const std::size_t size = data_.size();
    std::size_t end = pos_;
    while (end < size && !IsLineEnd(data_[end])) ++end;
    std::string line = data_.substr(pos_, end - pos_);
    pos_ = end;
    if (pos_ < size) {
        if (data_[pos_] == '\r' && pos_ + 1 < size && data_[pos_ + 1] == '\n') ++pos_;
        ++pos_;
    }
    return line;
}

// ---------------------------------------------------------------- TextWriter

namespace {
constexpr std::size_t kFlushAt = 64 * 1024;
unsigned tempCounter = 0;
}  // namespace

TextWriter::~TextWriter() {
    if (!open_) return;
    try {
        Close();
    } catch (...) {
    }
}

void TextWriter::Open(const std::string& path, Mode mode, bool atomic) {
    if (open_) Raise(errFileAlreadyOpen);
    if (IsDirectory(path)) Raise(errPathFileAccess);
    path_ = path;
    mode_ = mode;
    atomic_ = atomic;
    buffer_.clear();
    tmpPath_.clear();
    if (!atomic) {
        const int flags = O_WRONLY | O_CREAT | (mode == Mode::Append ? O_APPEND : O_TRUNC);
        fd_ = OpenRetry(path, flags);
        if (fd_ < 0) RaiseErrno(errno, path_);
        open_ = true;
        return;
    }
    if (mode == Mode::Append && FileExists(path)) buffer_ = ReadWhole(path);
    // The new text goes beside the target, so the final rename stays on one file system.
    const std::string folder = FolderOf(path);
    for (int attempt = 0; fd_ < 0; ++attempt) {
        tmpPath_ = JoinPath(folder, "." + FileNameOf(path) + "." + std::to_string(::getpid()) + "." +
                                        std::to_string(++tempCounter) + ".tmp");
        fd_ = OpenRetry(tmpPath_, O_WRONLY | O_CREAT | O_EXCL);
        if (fd_ < 0 && (errno != EEXIST || attempt > 100)) {
            const int err = errno;
            tmpPath_.clear();
            buffer_.clear();
            RaiseErrno(err, path_);
        }
    }
    struct stat st;
    if (::stat(path.c_str(), &st) == 0) ::fchmod(fd_, st.st_mode & 07777);
    open_ = true;
}

void TextWriter::Flush() {
    if (buffer_.empty()) return;
    const int err = WriteAll(fd_, buffer_.data(), buffer_.size());
    buffer_.clear();
    if (err) RaiseErrno(err, path_);
}

void TextWriter::Close() {
    if (!open_) return;
    open_ = false;
    int err = 0;
    if (!buffer_.empty()) err = WriteAll(fd_, buffer_.data(), buffer_.size());
    buffer_.clear();
    if (!err && atomic_ && ::fsync(fd_) != 0) err = errno;
    if (::close(fd_) != 0 && !err) err = errno;
    fd_ = -1;
    if (atomic_) {
        if (!err && ::rename(tmpPath_.c_str(), path_.c_str()) != 0) err = errno;
        if (err) {
            ::unlink(tmpPath_.c_str());
        } else {
            SyncFolder(path_);
        }
        tmpPath_.clear();
    }
    if (err) RaiseErrno(err, path_);
}

void TextWriter::Abandon() {
    if (!open_) return;
    if (!atomic_) {
        // Without a temporary file the text already belongs to the target.
        try {
            Close();
        } catch (...) {
        }
        return;
    }
    open_ = false;
    buffer_.clear();
    ::close(fd_);
    fd_ = -1;
    ::unlink(tmpPath_.c_str());
    tmpPath_.clear();
}

void TextWriter::Write(const std::string& s) {
    if (!open_) Raise(errBadFileName);
    buffer_ += s;
    // An atomic file is written whole at Close; the others as they grow.
    if (!atomic_ && buffer_.size() >= kFlushAt) Flush();
}

void TextWriter::PrintLine(const std::string& s) { Write(s + "\r\n"); }

void TextWriter::PrintLine(long v) { Write(Str(v) + " \r\n"); }

void TextWriter::PrintLine(bool v) { Write(v ? "True\r\n" : "False\r\n"); }

void TextWriter::PrintLine() { Write("\r\n"); }

// ---------------------------------------------------------------- RandomFile

RandomFile::~RandomFile() { Close(); }

void RandomFile::Open(const std::string& path, int recordLength) {
    if (fd_ >= 0) Raise(errFileAlreadyOpen);
    if (recordLength < 1) Raise(errBadRecordLength);
    int fd = OpenRetry(path, O_RDWR | O_CREAT);
    // Without write access the file is still opened for reading, as the runtime does.
    if (fd < 0 && (errno == EACCES || errno == EROFS || errno == EPERM)) fd = OpenRetry(path, O_RDONLY);
    if (fd < 0) RaiseErrno(errno, path);
    struct stat st;
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        ::close(fd);
        Raise(errPathFileAccess);
    }
    fd_ = fd;
    recLen_ = recordLength;
    path_ = path;
    locked_ = false;
}

void RandomFile::Close() {
    if (fd_ < 0) return;
    if (locked_) ::flock(fd_, LOCK_UN);
    ::close(fd_);
    fd_ = -1;
    locked_ = false;
}

std::int64_t RandomFile::LOF() const {
    if (fd_ < 0) Raise(errBadFileName);
    struct stat st;
    if (::fstat(fd_, &st) != 0) RaiseErrno(errno, path_);
    return st.st_size;
}

bool RandomFile::Get(long n, char* buf) { return GetRange(n, 1, buf) == 1; }

long RandomFile::GetRange(long first, long count, char* buf) {
    if (fd_ < 0) Raise(errBadFileName);
    if (first < 1 || count < 0) Raise(errBadRecordNumber);
    const std::size_t len = static_cast<std::size_t>(recLen_) * static_cast<std::size_t>(count);
    off_t at = static_cast<off_t>(first - 1) * recLen_;
    std::size_t got = 0;
    while (got < len) {
        const ssize_t r = ::pread(fd_, buf + got, len - got, at);
        if (r < 0) {
            if (errno == EINTR) continue;
            RaiseErrno(errno, path_);
        }
        if (r == 0) break;
        got += static_cast<std::size_t>(r);
        at += r;
    }
    std::fill(buf + got, buf + len, '\0');
    return static_cast<long>(got / static_cast<std::size_t>(recLen_));
}

void RandomFile::Put(long n, const char* buf) { PutRange(n, 1, buf); }

void RandomFile::PutRange(long first, long count, const char* buf) {
    if (fd_ < 0) Raise(errBadFileName);
    if (first < 1 || count < 0) Raise(errBadRecordNumber);
    std::size_t left = static_cast<std::size_t>(recLen_) * static_cast<std::size_t>(count);
    off_t at = static_cast<off_t>(first - 1) * recLen_;
    struct stat before;
    if (::fstat(fd_, &before) != 0) RaiseErrno(errno, path_);
    while (left > 0) {
        const ssize_t w = ::pwrite(fd_, buf, left, at);
        if (w < 0) {
            if (errno == EINTR) continue;
            const int err = errno;
            if (err == EBADF) Raise(errPathFileAccess);   // opened read-only
            // A full disk takes part of a record: that tail would read as a
            // record that was never saved, so the file goes back to its length.
            struct stat now;
            if (::fstat(fd_, &now) == 0 && now.st_size > before.st_size) {
                while (::ftruncate(fd_, before.st_size) != 0 && errno == EINTR) {
                }
            }
            RaiseErrno(err, path_);
        }
        buf += w;
        at += w;
        left -= static_cast<std::size_t>(w);
    }
}

void RandomFile::Lock() {
    if (fd_ < 0) Raise(errBadFileName);
    if (locked_) return;
    // flock belongs to the open file description, so a second open in this
    // same process is refused too.
    int r;
    do r = ::flock(fd_, LOCK_EX | LOCK_NB);
    while (r != 0 && errno == EINTR);
    if (r != 0) Raise(errPermissionDenied);
    locked_ = true;
}

void RandomFile::Unlock() {
    if (fd_ < 0 || !locked_) return;
    ::flock(fd_, LOCK_UN);
    locked_ = false;
}

void RandomFile::Sync() {
    if (fd_ < 0) Raise(errBadFileName);
    if (::fsync(fd_) != 0) RaiseErrno(errno, path_);
}

bool RandomFile::AtPath() const {
    if (fd_ < 0) return false;
    struct stat open, there;
    if (::fstat(fd_, &open) != 0 || ::stat(path_.c_str(), &there) != 0) return false;
    return open.st_dev == there.st_dev && open.st_ino == there.st_ino;
}

void RandomFile::WriteBack() {
    if (fd_ < 0) Raise(errBadFileName);
    const std::string tmp =
        JoinPath(FolderOf(path_), "." + FileNameOf(path_) + "." + std::to_string(::getpid()) + ".back.tmp");
    const int out = OpenRetry(tmp, O_WRONLY | O_CREAT | O_TRUNC);
    if (out < 0) RaiseErrno(errno, path_);
    struct stat st{};
    int err = ::fstat(fd_, &st) != 0 ? errno : 0;
    if (!err) ::fchmod(out, st.st_mode & 07777);
    // pread leaves the handle's own position alone.
    char chunk[65536];
    for (off_t at = 0; !err && at < st.st_size;) {
        const ssize_t n = ::pread(fd_, chunk, sizeof chunk, at);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            err = n < 0 ? errno : EIO;
            break;
        }
        err = WriteAll(out, chunk, static_cast<std::size_t>(n));
        at += n;
    }
    if (!err && ::fsync(out) != 0) err = errno;
    if (::close(out) != 0 && !err) err = errno;
    // Written whole beside the path first, so the path never holds half a file.
    if (!err && ::rename(tmp.c_str(), path_.c_str()) != 0) err = errno;
    if (err) {
        ::unlink(tmp.c_str());
        RaiseErrno(err, path_);
    }
    SyncFolder(path_);
    const int fd = OpenRetry(path_, O_RDWR);
    if (fd < 0) RaiseErrno(errno, path_);
    if (locked_) ::flock(fd, LOCK_EX | LOCK_NB);
    ::close(fd_);
    fd_ = fd;
}

// ---------------------------------------------------------------- directories

std::vector<std::string> Dir(const std::string& pattern) {
    const std::string folder = FolderOf(pattern);
    std::string mask = FileNameOf(pattern);
    if (mask.empty()) mask = "*";
    std::vector<std::string> found;
    DIR* d = ::opendir(folder.empty() ? "." : folder.c_str());
    if (!d) return found;
    const std::string base = folder.empty() ? CurDir() : folder;
    while (const dirent* e = ::readdir(d)) {
        const std::string name = e->d_name;
        // Names with a leading dot are hidden, as the hidden attribute hides them on Windows.
        if (name == "." || name == ".." || (name[0] == '.' && mask[0] != '.')) continue;
        if (!DirMatch(mask, name)) continue;
        const std::string full = JoinPath(base, name);
        struct stat st;
        if (::stat(full.c_str(), &st) == 0 && S_ISREG(st.st_mode)) found.push_back(full);
    }
    ::closedir(d);
    std::sort(found.begin(), found.end());
    return found;
}

bool FileExists(const std::string& path) {
    struct stat st;
    return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool DirExists(const std::string& path) { return !path.empty() && IsDirectory(path); }

std::int64_t FileLen(const std::string& path) {
    struct stat st;
    if (path.empty() || ::stat(path.c_str(), &st) != 0) Raise(errFileNotFound);
    return st.st_size;
}

void Kill(const std::string& pattern) {
    const std::vector<std::string> files = Dir(pattern);
    if (files.empty()) Raise(errFileNotFound);
    for (const std::string& f : files)
        if (::unlink(f.c_str()) != 0) RaiseErrno(errno, f, errFileNotFound);
}

void Name(const std::string& from, const std::string& to) {
    struct stat st;
    if (from.empty() || ::lstat(from.c_str(), &st) != 0) Raise(errFileNotFound);
    if (to.empty()) Raise(errBadFileName);
    if (::lstat(to.c_str(), &st) == 0) Raise(errFileExists);
    if (::rename(from.c_str(), to.c_str()) != 0) RaiseErrno(errno, from);
}

void FileCopy(const std::string& from, const std::string& to) {
    const int in = OpenRetry(from, O_RDONLY);
    if (in < 0) RaiseErrno(errno, from, MissingNumber(from));
    struct stat src, dst;
    if (::fstat(in, &src) != 0 || S_ISDIR(src.st_mode)) {
        ::close(in);
        Raise(errPathFileAccess);
    }
    // Truncating the target would destroy a source that is the same file.
    if (::stat(to.c_str(), &dst) == 0 && dst.st_dev == src.st_dev && dst.st_ino == src.st_ino) {
        ::close(in);
        Raise(errPermissionDenied);
    }
    const int out = OpenRetry(to, O_WRONLY | O_CREAT | O_TRUNC);
    if (out < 0) {
        const int err = errno;
        ::close(in);
        RaiseErrno(err, to);
    }
    int err = ReadChunks(in, [out](const char* chunk, std::size_t n) { return WriteAll(out, chunk, n); });
    ::close(in);
    if (::close(out) != 0 && !err) err = errno;
    if (err) {
        ::unlink(to.c_str());
        RaiseErrno(err, to);
    }
}

void MkDir(const std::string& path) {
    if (::mkdir(path.c_str(), 0777) != 0) RaiseErrno(errno, path);
}

void RmDir(const std::string& path) {
    if (::rmdir(path.c_str()) != 0) RaiseErrno(errno, path);
}

std::string CurDir() {
    std::string buf(256, '\0');
    while (::getcwd(buf.data(), buf.size()) == nullptr) {
        if (errno != ERANGE) RaiseErrno(errno, std::string());
        buf.resize(buf.size() * 2);
    }
    buf.resize(std::char_traits<char>::length(buf.c_str()));
    return buf;
}

void ChDir(const std::string& path) {
    if (::chdir(path.c_str()) != 0) RaiseErrno(errno, path);
}

std::string FolderOf(const std::string& path) {
    const auto p = path.rfind('/');
    if (p == std::string::npos) return std::string();
    if (p == 0) return "/";
    return path.substr(0, p);
}

std::string FileNameOf(const std::string& path) {
    const auto p = path.rfind('/');
    return p == std::string::npos ? path : path.substr(p + 1);
}

std::string JoinPath(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    if (folder.back() == '/') return folder + name;
    return folder + "/" + name;
}

}  // namespace vb
