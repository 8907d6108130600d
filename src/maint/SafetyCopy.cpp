#include "maint/SafetyCopy.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "maint/WriteAside.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"

namespace fs = std::filesystem;
using namespace vb;

namespace safety {

namespace {

const char* const Mark = "Vestrel safety copy";

std::string Base(const std::string& dataFile) {
    return dataFile.size() >= 4 ? dataFile.substr(0, dataFile.size() - 4) : dataFile;
}

std::string Stamp(const DateTime& t) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d_%02d-%02d-%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return buf;
}

// "2026-11-22_09-30-00" with an optional "-NN": the names this module gives.
bool OwnName(const std::string& n) {
    static const std::string shape = "dddd-dd-dd_dd-dd-dd";
    if (n.size() != shape.size() && n.size() != shape.size() + 3) return false;
    for (std::size_t i = 0; i < n.size(); ++i) {
        const char want = i < shape.size() ? shape[i] : (i == shape.size() ? '-' : 'd');
        if (want == 'd' ? !std::isdigit(static_cast<unsigned char>(n[i])) : n[i] != want) return false;
    }
    return true;
}

[[noreturn]] void Damaged(const std::string& path) {
    RuntimeError e(errPathFileAccess, "The safety copy is incomplete or damaged");
    e.Path = path;
    throw e;
}

std::optional<Copy> ReadCopy(const std::string& folder) {
    std::ifstream in(folder + "/copy.txt");
    std::string line;
    if (!std::getline(in, line) || line != Mark) return std::nullopt;
    Copy c;
    c.folder = folder;
    std::getline(in, c.operation);
    std::getline(in, c.taken);
    while (std::getline(in, line)) {
        const std::size_t sp = line.find(' ');
        if (sp == std::string::npos) return std::nullopt;
        c.files.emplace_back(line.substr(sp + 1), std::stoll(line.substr(0, sp)));
    }
    return c;
}

}  // namespace

std::vector<std::string> CrusadeFiles(const std::string& dataFile) {
    const std::string b = Base(dataFile);
    return {b + ".dta", b + ".inf", b + ".mem", b + ".zps", b + "_prayer.txt"};
}

std::string FolderFor(const std::string& dataFile) { return Base(dataFile) + "_safety"; }

std::vector<Copy> List(const std::string& dataFile) {
    std::vector<Copy> out;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(FolderFor(dataFile), ec)) {
        if (!e.is_directory(ec) || !OwnName(e.path().filename().string())) continue;
        if (auto c = ReadCopy(e.path().string())) out.push_back(std::move(*c));
    }
    // The names sort by time; a "-NN" of the same second after the plain one.
    std::sort(out.begin(), out.end(), [](const Copy& a, const Copy& b) { return a.folder < b.folder; });
    return out;
}

std::optional<Copy> Last(const std::string& dataFile) {
    std::vector<Copy> all = List(dataFile);
    if (all.empty()) return std::nullopt;
    return all.back();
}

Copy Take(const std::string& dataFile, const std::string& operation, const DateTime& now, int keep) {
    static std::atomic<int> counter{0};
    const std::string root = FolderFor(dataFile);
    std::error_code ec;
    fs::create_directory(root, ec);
    if (!fs::is_directory(root)) {
        RuntimeError e(errPermissionDenied, ErrorDescription(errPermissionDenied));
        e.Path = root;
        throw e;
    }
    const std::string partial =
        root + "/.partial-" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    fs::remove_all(partial, ec);
    if (!fs::create_directory(partial, ec)) {
        RuntimeError e(errPermissionDenied, ErrorDescription(errPermissionDenied));
        e.Path = partial;
        throw e;
    }
    Copy c;
    c.operation = operation;
    c.taken = FormatDate(now, "Short Date") + " " + FormatDate(now, "hh:mm:ss");
    try {
        for (const std::string& f : CrusadeFiles(dataFile)) {
            if (!FileExists(f)) continue;
            const std::string name = FileNameOf(f);
            maint::CopyDurably(f, partial + "/" + name, false);
            c.files.emplace_back(name, static_cast<long long>(FileLen(partial + "/" + name)));
        }
        std::string list = std::string(Mark) + "\n" + operation + "\n" + c.taken + "\n";
        for (const auto& [name, bytes] : c.files) list += std::to_string(bytes) + " " + name + "\n";
        const std::string listTemp = partial + "/copy.tmp";
        {
            std::ofstream out(listTemp, std::ios::binary);
            out << list;
            out.close();
            if (!out) {
                RuntimeError e(errDiskFull, ErrorDescription(errDiskFull));
                e.Path = listTemp;
                throw e;
            }
        }
        maint::CopyDurably(listTemp, partial + "/copy.txt", false);
        for (const auto& entry : c.files) maint::SyncFile(partial + "/" + entry.first);
        maint::SyncFile(partial + "/copy.txt");
        fs::remove(listTemp, ec);
        // A copy of the same second takes the next number after the highest
        // one there, so that the newest always sorts last.
        std::string name = Stamp(now);
        int n = 0;
        for (const auto& e : fs::directory_iterator(root, ec)) {
            const std::string other = e.path().filename().string();
            if (OwnName(other) && other.rfind(name, 0) == 0)
                n = std::max(n, other.size() > name.size() ? std::stoi(other.substr(name.size() + 1)) : 1);
        }
        if (n > 0) name += "-" + std::string(n + 1 < 10 ? "0" : "") + std::to_string(n + 1);
        fs::rename(partial, root + "/" + name, ec);
        if (ec) {
            RuntimeError e(errPermissionDenied, ErrorDescription(errPermissionDenied));
            e.Path = root + "/" + name;
            throw e;
        }
        c.folder = root + "/" + name;
        maint::SyncFolder(root);
    } catch (...) {
        fs::remove_all(partial, ec);
        throw;
    }
    // Only this crusade's own copies are pruned, oldest first.
    std::vector<Copy> all = List(dataFile);
    for (std::size_t i = 0; keep > 0 && all.size() - i > static_cast<std::size_t>(keep); ++i)
        fs::remove_all(all[i].folder, ec);
    return c;
}

void BringBack(const Copy& c, const std::string& dataFile) {
    // Every file is checked against the list before anything is replaced.
    for (const auto& [name, bytes] : c.files) {
        const std::string from = c.folder + "/" + name;
        if (!FileExists(from) || FileLen(from) != bytes) Damaged(from);
    }
    maint::AsideSet set;
    std::vector<std::string> absent;
    for (const std::string& f : CrusadeFiles(dataFile)) {
        const std::string name = FileNameOf(f);
        auto it = std::find_if(c.files.begin(), c.files.end(), [&](const auto& e) { return e.first == name; });
        if (it == c.files.end()) absent.push_back(f);
        else set.Stage(c.folder + "/" + name, f);
    }
    set.Commit();
    std::error_code ec;
    for (const std::string& f : absent) fs::remove(f, ec);
    fs::remove_all(c.folder, ec);
}

}  // namespace safety
