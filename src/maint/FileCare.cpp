#include "maint/FileCare.h"

#include <filesystem>
#include <vector>

#include "maint/SafetyCopy.h"
#include "maint/WriteAside.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"
#include "store/State.h"

namespace fs = std::filesystem;
using namespace vb;

namespace maint {

namespace {

constexpr long RecLen = RecordLayout::Length;

std::string Sibling(const std::string& path, const std::string& folder) {
    return JoinPath(folder, FileNameOf(path));
}

// Most records of a real crusade have a number of four digits and names of
// printable characters; a picture, a text or random bytes almost never do.
bool LooksLikeRecord(const char* rec) {
    for (std::size_t k = 0; k < 4; ++k)
        if (rec[k] < '0' || rec[k] > '9') return false;
    for (std::size_t k = RecordAt::FName; k < RecordAt::Notes; ++k) {
        const auto c = static_cast<unsigned char>(rec[k]);
        if (c < 0x20 || c == 0x7F) return false;
    }
    return true;
}

std::string Why(const RuntimeError& e) {
    std::string s = e.Description() + " (error " + std::to_string(e.Number) + ")";
    if (!e.Path.empty()) s += ": " + e.Path;
    return s;
}

}  // namespace

std::string FileName(const std::string& path) {
    const std::size_t at = path.find_last_of("/\\");
    return at == std::string::npos ? path : path.substr(at + 1);
}

bool RemovableTarget(const std::string& path) {
    const std::string head = UCase(Left(path, 3));
    return head == "A:\\" || head == "B:\\" || path.rfind("/media/", 0) == 0 || path.rfind("/run/media/", 0) == 0;
}

std::string InfoStamp(const std::string& infPath) {
    std::string line;
    IgnoreErrors([&] {
        TextReader in(infPath);
        for (int i = 1; i <= 133; ++i) line = in.LineInput();
    });
    return line;
}

std::vector<std::string> BackupOrder(const std::string& dataFile) {
    std::vector<std::string> f = safety::CrusadeFiles(dataFile);   // dta inf mem zps prayer
    return {f[1], f[2], f[3], f[0], f[4]};
}

std::string BackupFiles(const std::string& dataFile, const std::string& target) {
    const std::string folder = FolderOf(target);
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const std::string& f : BackupOrder(dataFile))
        if (FileExists(f)) pairs.emplace_back(f, Sibling(f, folder));   // a crusade without prayer list has none
    try {
        AsideSet set;
        for (const auto& [from, to] : pairs) set.Stage(from, to);
        set.Commit();
    } catch (const RuntimeError& e) {
        return Why(e);
    }
    // Read back what the disk now holds.
    for (const auto& [from, to] : pairs) {
        std::int64_t have = -1, want = -1;
        IgnoreErrors([&] { want = FileLen(from); });
        IgnoreErrors([&] { have = FileLen(to); });
        if (have != want)
            return to + " holds " + std::to_string(have) + " bytes instead of " + std::to_string(want) + ".";
    }
    const std::string dta = Sibling(dataFile, folder);
    long records = -1;
    IgnoreErrors([&] {
        RandomFile f;
        f.Open(dta, RecLen);
        records = f.RecordCount();
    });
    if (records * RecLen != FileLen(dataFile))
        return dta + " reads back with " + std::to_string(records) + " records instead of " +
               std::to_string(FileLen(dataFile) / RecLen) + ".";
    return std::string();
}

std::string CheckBackup(const std::string& backupDta) {
    if (!FileExists(backupDta)) return "The file " + backupDta + " does not exist.";
    const std::int64_t len = FileLen(backupDta);
    if (len % RecLen != 0)
        return "The file " + backupDta + " is not a whole crusade record file: its length of " + std::to_string(len) +
               " bytes is not a whole number of records. It may be cut short or come from another program.";
    const std::string inf = Left(backupDta, static_cast<long>(backupDta.size()) - 3) + "inf";
    if (!FileExists(inf)) return "The information file " + inf + " is missing.";
    if (InfoStamp(inf).empty())
        return "The information file " + inf + " does not read: it is cut short or is not a crusade's.";
    long good = 0, count = 0;
    try {
        RandomFile f;
        f.Open(backupDta, RecLen);
        count = f.RecordCount();
        std::vector<char> block(256 * RecLen);
        for (long first = 1; first <= count; first += 256) {
            const long got = f.GetRange(first, std::min(256L, count - first + 1), block.data());
            for (long j = 0; j < got; ++j) good += LooksLikeRecord(block.data() + j * RecLen);
        }
    } catch (const RuntimeError& e) {
        return "The file " + backupDta + " cannot be read: " + Why(e);
    }
    if (good * 2 < count)
        return "The file " + backupDta + " is not a crusade's record file: its records hold no registration numbers "
               "and names.";
    return std::string();
}

void RestoreFiles(const std::string& backupDta, const std::string& dataFile) {
    const std::string folder = FolderOf(backupDta);
    AsideSet set;
    // The order of the copy: .dta, .inf, .mem, .zps, then the prayer list.
    for (const std::string& f : safety::CrusadeFiles(dataFile)) {
        const std::string from = Sibling(f, folder);
        if (FileExists(from)) set.Stage(from, f);
    }
    set.Commit();
}

long Compact(ProgramState& p, const std::function<void(long, long)>& progress) {
    const std::string target = p.DataFile;
    const std::string fresh = Left(target, static_cast<long>(target.size()) - 3) + "new";
    const long count = p.RecordCount;
    // A ".new" of an earlier run that failed is emptied first: its tail must not
    // reach the compacted file.
    std::error_code ec;
    fs::remove(fresh, ec);
    long kept = 0;
    try {
        RandomFile out;
        out.Open(fresh, RecLen);
        constexpr long kBlock = 256;
        std::vector<char> in(static_cast<std::size_t>(kBlock) * RecLen), keep(in.size());
        for (long first = 1; first <= count; first += kBlock) {
            const long got = p.File1.GetRange(first, std::min(kBlock, count - first + 1), in.data());
            long n = 0;
            for (long j = 0; j < got; ++j) {
                const char* rec = in.data() + j * RecLen;
                if (!RecordView{rec}.Live()) continue;
                std::copy(rec, rec + RecLen, keep.data() + n * RecLen);
                ++n;
            }
            if (n > 0) out.PutRange(kept + 1, n, keep.data());
            kept += n;
            if (progress) progress(first + got - 1, count);
        }
        out.Sync();
        out.Close();
        p.File1.Close();
        // Renamed over the old file rather than after deleting it, so that
        // there is no moment without a record file.
        fs::rename(fresh, target, ec);
        if (ec) {
            RuntimeError e(errPermissionDenied, ErrorDescription(errPermissionDenied));
            e.Path = target;
            throw e;
        }
        SyncFolder(FolderOf(target));
    } catch (const RuntimeError&) {
        fs::remove(fresh, ec);
        throw;
    }
    return kept;
}

}  // namespace maint
