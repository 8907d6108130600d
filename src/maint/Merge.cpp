#include "maint/Merge.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "maint/WriteAside.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"

namespace fs = std::filesystem;
using namespace vb;

namespace maint {

namespace {

constexpr long RecLen = ProgramState::RecLen;

std::string_view Number(const RecordBytes& r) { return {r.data() + RecordAt::RNum, 4}; }

bool Live(const RecordBytes& r) { return RecordView{r.data()}.Live(); }

// First and last name in full width, as the duplicate test compares them.
std::string Names(const char* rec) {
    return std::string(rec + RecordAt::FName, 20) + std::string(rec + RecordAt::LName, 20);
}

RuntimeError Refused(const std::string& path) {
    RuntimeError e(errPermissionDenied, ErrorDescription(errPermissionDenied));
    e.Path = path;
    return e;
}

// The names of every record of the file, deleted ones too, read in blocks.
std::unordered_set<std::string> NamesOnFile(ProgramState& p) {
    std::unordered_set<std::string> names;
    constexpr long kBlock = 256;
    std::vector<char> buf(static_cast<std::size_t>(kBlock * RecLen));
    for (long first = 1; first <= p.RecordCount; first += kBlock) {
        const long got = p.File1.GetRange(first, std::min(kBlock, p.RecordCount - first + 1), buf.data());
        for (long j = 0; j < got; ++j) names.insert(Names(buf.data() + j * RecLen));
        if (got == 0) break;
    }
    return names;
}

// The record file with `records` after its last record: a copy is written
// beside it, synced, and renamed over it, so that the file is at every moment
// the old whole file or the new whole file.
void WriteWithAppended(ProgramState& p, const std::vector<RecordBytes>& records) {
    if (records.empty()) return;
    const std::string target = p.DataFile;
    const std::string aside = TempBeside(target);
    try {
        p.File1.Sync();
        CopyDurably(target, aside, false);
        RandomFile out;
        out.Open(aside, static_cast<int>(RecLen));
        // The copy ends where the records end: a partial tail record is overwritten.
        std::vector<char> block;
        block.reserve(records.size() * RecLen);
        for (const RecordBytes& r : records) block.insert(block.end(), r.begin(), r.end());
        out.PutRange(p.RecordCount + 1, static_cast<long>(records.size()), block.data());
        out.Sync();
        out.Close();
        p.File1.Close();
        std::error_code ec;
        fs::rename(aside, target, ec);
        if (ec) throw Refused(target);
        SyncFolder(FolderOf(target));
    } catch (const RuntimeError&) {
        std::error_code ec;
        fs::remove(aside, ec);
        throw;
    }
}

}  // namespace

std::vector<RecordBytes> ReadOtherRecords(const std::string& path, std::string& why) {
    std::vector<RecordBytes> out;
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        why = "The file " + path + " cannot be read.";
        return out;
    }
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) {
        why = "The file " + path + " cannot be read.";
        return out;
    }
    // A file that is not whole records is not a crusade, or was cut short; the
    // old program read it anyway and carried a torn record in.
    if (bytes.size() % RecLen != 0) {
        why = "The file " + path + " is not a crusade's record file: its length (" + std::to_string(bytes.size()) +
              " bytes) is not a whole number of records.";
        return out;
    }
    out.resize(bytes.size() / RecLen);
    for (std::size_t i = 0; i < out.size(); ++i)
        std::copy_n(bytes.data() + i * RecLen, RecLen, out[i].data());
    return out;
}

MergeCount MergeRecords(ProgramState& p, const std::vector<RecordBytes>& other) {
    MergeCount c;
    std::vector<RecordBytes> added;
    std::vector<std::string> entries;
    // Numbers this merge brought in. The list gets its entries only at the end,
    // so that the index of numbers is built once and not at every entry; a
    // number is held when the list or this set holds it, which is what walking
    // the grown list would find.
    std::unordered_set<std::string> numbersAdded;
    // Built at the first clash: a merge without one never reads the file.
    std::optional<std::unordered_set<std::string>> names;
    const auto held = [&](std::string_view number) {
        return FirstEntryWithNumber(p, number) != 0 || numbersAdded.contains(UCase(std::string(number)));
    };
    for (const RecordBytes& in : other) {
        if (!Live(in)) continue;
        RecordBytes r = in;
        if (held(Number(r))) {
            if (!names) {
                names = NamesOnFile(p);
                for (const RecordBytes& a : added) names->insert(Names(a.data()));
            }
            if (names->contains(Names(r.data()))) {
                ++c.skipped;
                continue;
            }
            std::string num;
            // NextRNum passes over the list's numbers; this merge's own are passed here.
            do {
                num = NextRNum(p);
                if (num.empty()) throw RuntimeError(errPermissionDenied, "No registration number could be given out");
            } while (numbersAdded.contains(UCase(num)));
            std::copy_n(num.data(), 4, r.data() + RecordAt::RNum);
            ++c.renumbered;
        }
        numbersAdded.insert(UCase(std::string(Number(r))));
        if (names) names->insert(Names(r.data()));
        if (r[RecordAt::IntLevel] == 'G') ++c.baptisms;
        p.MasterRec = DecodeRecord(r.data());
        entries.push_back(AlphaEntry(p, p.RecordCount + static_cast<long>(added.size()) + 1));
        added.push_back(r);
    }
    WriteWithAppended(p, added);
    p.RecordCount += static_cast<long>(added.size());
    p.SortIndex.resize(static_cast<std::size_t>(p.IndexCount) + 1);
    p.SortIndex.insert(p.SortIndex.end(), entries.begin(), entries.end());
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    c.added = static_cast<long>(added.size());
    return c;
}

int MergeMemberLines(ProgramState& p, const std::string& otherMem) {
    std::vector<std::string> lines;
    IgnoreErrors([&] {
        TextReader in(otherMem);
        while (!in.Eof()) lines.push_back(in.InputString());
    });
    std::unordered_set<std::string> have(p.MemberList.begin() + 1, p.MemberList.begin() + 1 + p.MemberCount);
    int n = 0;
    for (const std::string& line : lines) {
        if (line.empty() || !have.insert(line).second) continue;
        p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
        p.MemberList.push_back(line);
        ++p.MemberCount;
        ++n;
    }
    return n;
}

std::vector<RecordBytes> MissingRecords(const ProgramState& p, const std::vector<RecordBytes>& backup) {
    std::vector<RecordBytes> out;
    for (const RecordBytes& r : backup)
        if (Live(r) && FirstEntryWithNumber(p, Number(r)) == 0) out.push_back(r);
    return out;
}

void AppendRecords(ProgramState& p, const std::vector<RecordBytes>& records) {
    WriteWithAppended(p, records);
    p.RecordCount += static_cast<long>(records.size());
}

}  // namespace maint
