// The index of numbers must answer exactly as walking the list does, after every
// change the store makes to the list in place and after lists replaced behind it.
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "platform/vb/Strings.h"
#include "store/Generator.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"
#include "store/WriteBack.h"
#include "support/QuietHost.h"
#include "support/TestCrusade.h"

using namespace vb;

namespace {

// The plain walk: the first entry whose first 4 characters are the number, without case.
int Walk(const ProgramState& p, const std::string& number, int passOver = 0) {
    const std::string key = UCase(number);
    for (int i = 1; i <= p.IndexCount && i < static_cast<int>(p.SortIndex.size()); ++i)
        if (i != passOver && UCase(Left(p.SortIndex[i], 4)) == key) return i;
    return 0;
}

// Every number of the list, in both cases, with some that are in no entry and
// some that no entry can hold; each with and without the current entry passed over.
void ExpectSameAsWalk(const ProgramState& p, const std::string& after) {
    std::set<std::string> numbers = {"", "0", "00", "12a", "0000", "9999", "ZZZZ", "12345", "----"};
    for (int i = 1; i <= p.IndexCount; ++i) {
        numbers.insert(Left(p.SortIndex[i], 4));
        numbers.insert(LCase(Left(p.SortIndex[i], 4)));
    }
    int wrong = 0;
    for (const std::string& n : numbers)
        for (int passOver : {0, p.CurrentIndex}) {
            int want = Walk(p, n, passOver), got = FirstEntryWithNumber(p, n, passOver);
            if (want != got && ++wrong <= 3)
                ADD_FAILURE() << after << ": number '" << n << "' passing over " << passOver << ": walk " << want
                              << ", index " << got;
        }
}

void Poke(std::string& bytes, long record, std::size_t offset, const std::string& text) {
    bytes.replace(static_cast<std::size_t>(record - 1) * MasterRecord::Length + offset, text.size(), text);
}

}  // namespace

TEST(NumberIndex, AnswersAsTheWalkThroughEveryChangeOfTheList) {
    for (int people : {40, 1000}) {
        TempFolder folder;
        QuietHost h;
        ProgramState p(h, folder.path());
        const std::string dta = folder / "Spring.dta";
        GenerateCrusade(p, dta, people, 11u + static_cast<unsigned>(people));
        std::string bytes;
        {
            std::ifstream in(dta, std::ios::binary);
            bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        }
        // Damaged numbers (letters, lower case, blanks), deleted people and shared numbers.
        const char* damaged[] = {"12a4", "12A4", "ab  ", "  7 ", "\xe9xyz", "\xc9XYZ"};
        for (int k = 0; k < 6; ++k) Poke(bytes, 3 + k, RecordAt::RNum, damaged[k]);
        for (long r = 10; r < people; r += 7) Poke(bytes, r, RecordAt::WorkerCode, "##");
        for (long r = 12; r < people; r += 5) Poke(bytes, r, RecordAt::RNum, "0042");
        std::ofstream(dta, std::ios::binary | std::ios::trunc) << bytes;
        OpenRecordFile(p);
        ASSERT_TRUE(FullLoadPass(p));
        const std::string at = std::to_string(people) + " people, ";
        ExpectSameAsWalk(p, at + "loaded");

        // Renumbered: to a fresh number, to a shared one, to lower case, away from the first of a number.
        const int first42 = Walk(p, "0042");
        const std::pair<int, std::string> renumbers[] = {
            {5, "7777"}, {p.IndexCount, "0042"}, {2, "12a4"}, {first42, "0043"}, {first42 + 1, "0042"}};
        for (const auto& [pos, number] : renumbers) {
            p.CurrentIndex = pos;
            SetEntryNumber(p, pos, number);
            ExpectSameAsWalk(p, at + "renumbered " + std::to_string(pos) + " to " + number);
        }
        // Written back after a save, with the record's number changed.
        p.CurrentIndex = 7;
        p.RecordPos = static_cast<long>(Val(Right(p.SortIndex[7], 4)));
        GetRecord(p, p.RecordPos);
        p.MasterRec.RNum = "0042";
        ASSERT_TRUE(WriteBack(p, "x"));
        ExpectSameAsWalk(p, at + "written back");
        // Deleted: the first of a shared number, the first entry, the last.
        for (int pos : {Walk(p, "0042"), 1, p.IndexCount}) {
            p.CurrentIndex = pos;
            DropCurrentEntry(p);
            ExpectSameAsWalk(p, at + "deleted " + std::to_string(pos));
        }
        // Added as the edit screen does: a slot at the end, then its number.
        ++p.IndexCount;
        p.SortIndex.resize(static_cast<std::size_t>(p.IndexCount) + 1);
        p.SortIndex[static_cast<std::size_t>(p.IndexCount)] = "-------" + std::string(" 999");
        ExpectSameAsWalk(p, at + "slot added");
        p.CurrentIndex = p.IndexCount;
        SetEntryNumber(p, p.IndexCount, "0001");
        ExpectSameAsWalk(p, at + "added");
        // Re-sorted, and replaced whole by another list of the same size.
        SortEntries(p);
        ExpectSameAsWalk(p, at + "sorted");
        std::vector<std::string> other(p.SortIndex.rbegin(), p.SortIndex.rend() - 1);
        other.insert(other.begin(), p.SortIndex[0]);
        p.SortIndex = other;
        ExpectSameAsWalk(p, at + "replaced");
        p.File1.Close();
    }
}
