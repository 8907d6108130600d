// Merge of another crusade and compare with a backup, through the File menu.
#include <gtest/gtest.h>

#include <filesystem>

#include "maint/SafetyCopy.h"
#include "store/Info.h"
#include "store/Members.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;
using host::vbNo;
using host::vbYes;

namespace {

struct Person {
    const char* rnum;
    const char* first;
    const char* last;
    bool deleted = false;
};

std::string Bytes(const std::vector<Person>& people) {
    std::string out;
    for (const Person& x : people) {
        MasterRecord r = MakePerson(x.rnum, x.first, x.last);
        r.WorkerCode = x.deleted ? "##" : "07";
        const RecordBytes b = EncodeRecord(r);
        out.append(b.data(), b.size());
    }
    return out;
}

// Loaded: 9999 Ann Lee, 9998 Bob Ray, 9997 Cy Old (deleted), numbered down from 9999.
struct Loaded : TestCrusade {
    Loaded() {
        std::vector<MasterRecord> people{MakePerson("9999", "Ann", "Lee"), MakePerson("9998", "Bob", "Ray"),
                                         MakePerson("9997", "Cy", "Old")};
        people[2].WorkerCode = "##";
        ShowOnEditScreen(people);
        NewSideTables(p);
        AddMember(p, MemberLine("9999", "Lee", "Ann"));
    }
    std::string Other(const std::string& name, const std::vector<Person>& people) {
        const std::string path = folder / (name + ".dta");
        WriteFile(path, Bytes(people));
        return path;
    }
    std::vector<std::string> Numbers() const {
        std::vector<std::string> out;
        for (long i = 1; i <= RecordsOnDisk(); ++i) out.push_back(ReadRecord(i).RNum.str());
        return out;
    }
};

}  // namespace

TEST(Merge, DuplicateTestGivesTheNumbersOfThePart) {
    Loaded c;
    const std::string other = c.Other("Fall", {
        {"9999", "Ann", "Lee"},          // same number, same names: already here
        {"9998", "Dan", "Fox"},          // same number, other person: next number
        {"9998", "Cy", "Old"},           // same names as a deleted record: already here
        {"9998", "ann", "Lee"},          // names compared with case: another person
        {"0005", "Eve", "Ng"},           // a new number comes in as it is
        {"0006", "Bob", "Ray"},          // ... with no look at the names
        {"0005", "Fay", "Wu"},           // clashes with one this merge brought in
        {"0007", "Gus", "Del", true},    // deleted in the other file: left out
    });
    c.WriteFile(c.folder / "Fall.mem", "\"" + MemberLine("9999", "Lee", "Ann") + "\"\r\n\"0005 Ng  Eve\"\r\n");
    c.p.LastRNum = 9999;
    c.host.ExpectOpen("Merge Files into the Master File", other)
        .ExpectBox("You will merge 8 records from:", vbYes)
        .ExpectBox("Last Chance! Are you sure?", vbYes);
    c.p.Edit().mnuMerge.Click();
    c.host.Verify();
    // 9997 is free in the list (its holder is deleted), so the first clash takes it.
    EXPECT_EQ(c.Numbers(), (std::vector<std::string>{"9999", "9998", "9997", "9997", "9996", "0005", "0006", "9995"}));
    EXPECT_EQ(c.p.IndexCount, 7);
    EXPECT_EQ(c.p.LastRNum, 9995);
    c.p.LastRNum = 0;
    LoadInfo(c.p);
    EXPECT_EQ(c.p.LastRNum, 9995) << "the information file is rewritten at each number drawn";
    ASSERT_EQ(c.p.MemberCount, 2);
    EXPECT_EQ(c.p.MemberList[2], "0005 Ng  Eve");
    EXPECT_TRUE(safety::Last(c.dataFile)) << "a safety copy is kept before the merge";
}

TEST(Merge, RefusesWhatWouldHarmTheCrusade) {
    struct Case {
        const char* name;
        std::string bytes;
        const char* box;
    } cases[] = {
        {"Odd", Bytes({{"0005", "Eve", "Ng"}}) + "x", "is not a whole number of records"},
        {"Spring", "", "You Cannot Merge the Currently Loaded File into itself."},
    };
    for (const Case& k : cases) {
        Loaded c;
        const std::string path = std::string(k.name) == "Spring" ? c.dataFile : c.Other(k.name, {});
        if (!k.bytes.empty()) c.WriteFile(path, k.bytes);
        const std::string before = c.ReadFile(c.dataFile);
        c.host.ExpectOpen("Merge Files", path).ExpectBox(k.box);
        c.p.Edit().mnuMerge.Click();
        c.host.Verify();
        EXPECT_EQ(c.ReadFile(c.dataFile), before) << k.name;
        EXPECT_EQ(c.p.IndexCount, 2) << k.name;
        EXPECT_FALSE(safety::Last(c.dataFile)) << k.name;
    }
}

TEST(Merge, CompareOffersExactlyTheMissingPeople) {
    Loaded c;
    fs::create_directories(c.folder / "stick");
    c.p.BackupPath = c.folder / "stick/Spring.dta";
    c.WriteFile(c.p.BackupPath, Bytes({{"9999", "Ann", "Lee"},
                                       {"9998", "Bob", "Ray"},
                                       {"9997", "Cy", "Old"},
                                       {"9996", "Dan", "Fox"},
                                       {"9995", "Eve", "Ng", true}}));
    c.host.ExpectBox("You will compare 3 records in:", vbYes)
        .ExpectBox("Found Missing Record: 07  Old, Cy  ", vbNo)
        .ExpectBox("Found Missing Record: 07  Fox, Dan  ", vbYes)
        .ExpectBox("Files have been repaired Successfully.");
    c.p.Edit().mnuCompare.Click();
    c.host.Verify();
    EXPECT_EQ(c.Numbers(), (std::vector<std::string>{"9999", "9998", "9997", "9996"}));
    EXPECT_EQ(c.p.IndexCount, 3);

    // Nothing missing now but the one declined.
    c.host.ExpectBox("You will compare 4 records in:", vbYes)
        .ExpectBox("Found Missing Record: 07  Old, Cy  ", vbNo)
        .ExpectBox("Files have not been repaired.");
    c.p.Edit().mnuCompare.Click();
    c.host.Verify();
    EXPECT_EQ(c.p.RecordCount, 4);
}
