// The zip table editor, the team pass and the team counts.
#include <gtest/gtest.h>

#include "edit/CardCrusade.h"
#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"
#include "store/ZipTable.h"
#include "tables/EditZip.h"
#include "tables/ZipCnt.h"

using namespace forms;

namespace {

// A zip entry in its fixed widths.
std::string E(const std::string& zip, const std::string& state, const std::string& team, const std::string& city, int count) {
    return vb::Fixed(zip, 10) + vb::Fixed(state, 2) + team + vb::Fixed(city, 15) + vb::Right("    " + std::to_string(count), 4);
}

MasterRecord Person(const std::string& rnum, const std::string& last, const std::string& zip, const std::string& team) {
    MasterRecord r = MakePerson(rnum, "Al", last);
    r.Zip = zip;
    r.WorkerCode = team;
    return r;
}

struct ZipCrusade : CardCrusade {
    // Each person's zip and team before the pass, and the team the pass must leave.
    struct Row { std::string zip, team, after, why; };
    static const std::vector<Row>& Rows() {
        static const std::vector<Row> rows = {
            {"12345", "00", "05", "the first of two entries for the zip"},
            {"12345", "03", "03", "a team already given is kept"},
            {"23456", "00", "00", "a zip whose team is 00"},
            {"2345", "00", "09", "contained in a longer zip with no state, as a walk finds it"},
            {"NoZip", "00", "00", "NoZip, though an entry holds it"},
            {"", "00", "00", "a blank zip, though a short city ends in blanks"},
            {"99999", "00", "00", "a zip not in the table"},
            {"12345", "##", "##", "a deleted record"},
        };
        return rows;
    }
    static std::vector<MasterRecord> People() {
        std::vector<MasterRecord> v;
        int n = 1;
        for (const Row& r : Rows()) v.push_back(Person(vb::Right("000" + std::to_string(n), 4), "P" + std::to_string(n), r.zip, r.team)), ++n;
        return v;
    }
    ZipCrusade() : CardCrusade(People()) {
        const std::string table[] = {E("12345", "CA", "05", "Springfield", 2), E("12345", "CA", "07", "Shelbyville", 1),
                                     E("23456", "CA", "00", "Ogdenville", 1), E("912345", "", "09", "Far Away", 1),
                                     E("NoZip", "XX", "11", "Nowhere", 1),    E("34567", "CA", "12", "Ely", 1)};
        p.ZipCount = 0;
        for (const std::string& t : table) p.ZipList[static_cast<std::size_t>(++p.ZipCount)] = t;
    }
    std::string Disk() const { return c.ReadFile(p.DataFile); }
};
using TeamPass = ZipCrusade;
using ZipEditor = ZipCrusade;

void AnswerUpdate(ScriptedHost& h, int first, int second = host::vbYes) {
    h.ExpectBox("if the current workercode assigned is '00'", first, "Assign Teams to Records", host::vbYesNo | host::vbQuestion);
    if (first == host::vbYes) h.ExpectBox("This process cannot be reversed.", second, "Assign Teams to Records");
}

}  // namespace

TEST_F(TeamPass, WritesTheZipsTeamOnlyWhereThePersonHadNone) {
    EditZip& z = p.Zips();
    z.Load();
    const std::string before = Disk();
    AnswerUpdate(c.host, host::vbNo);
    z.AssignNames.UserClick();
    AnswerUpdate(c.host, host::vbYes, host::vbNo);
    z.AssignNames.UserClick();
    EXPECT_EQ(before, Disk());

    AnswerUpdate(c.host, host::vbYes);
    c.host.ExpectBox("Check for Duplicate Address with Different Team Code Assignmnets from the Preview Screen 'Duplicates' menu");
    z.AssignNames.UserClick();
    const std::string after = Disk();
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < ZipCrusade::Rows().size(); ++i) {
        SCOPED_TRACE(ZipCrusade::Rows()[i].why);
        EXPECT_EQ(ZipCrusade::Rows()[i].after, c.ReadRecord(static_cast<long>(i) + 1).WorkerCode.str());
    }
    // Nothing but team codes changed.
    for (std::size_t b = 0; b < after.size(); ++b) {
        if (b % MasterRecord::Length - RecordAt::WorkerCode < 2) continue;
        ASSERT_EQ(before[b], after[b]) << "byte " << b;
    }
    EXPECT_TRUE(Played("S03.wav"));

    // Canadian: the first three characters of the zip are the key.
    p.CanadaSorter = true;
    p.ZipList[1] = E("K1A", "ON", "04", "Ottawa", 1);
    MasterRecord r = Person("0042", "Roy", "K1A 0B1", "00");
    p.MasterRec = r;
    PutRecord(p, 1);
    EXPECT_EQ(1, AssignTeams(p).written);
    EXPECT_EQ("04", c.ReadRecord(1).WorkerCode.str());
    z.Unload();
}

TEST_F(ZipEditor, NavigatesSortsSearchesAddsAndKeepsEveryEntryWhole) {
    EditZip& z = p.Zips();
    auto shown = [&] { return z.Zip.Text() + "|" + z.City.Text() + "|" + z.WorkerCode.Text() + "|" + z.RCounter.Caption(); };
    z.Load();
    EXPECT_EQ("Assign Teams to Zip Codes", z.Caption());
    EXPECT_EQ("12345|Springfield|05|1 of 6", shown());
    z.PreviousRecord.UserClick();
    EXPECT_TRUE(Played("S02.wav"));
    z.LastRecordButton.UserClick();
    EXPECT_EQ("34567|Ely|12|6 of 6", shown());

    // The team code is padded, a wrong one refused; a city cannot be emptied.
    z.WorkerCode.SetFocus();
    z.WorkerCode.SetText("7");
    z.City.SetFocus();
    EXPECT_EQ(E("34567", "CA", "07", "Ely", 1), p.ZipList[6]);
    z.WorkerCode.SetFocus();
    z.WorkerCode.SetText("77");
    c.host.ExpectBox("The team code is a number from 00 to 40.");
    z.City.SetFocus();
    EXPECT_EQ("07", z.WorkerCode.Text());
    z.City.SetText("");
    c.host.ExpectBox("Zipcode 34567 has no city.");
    z.FirstRecordButton.UserClick();
    EXPECT_EQ("34567||07|6 of 6", shown());
    z.City.SetText("Ely Heights");
    z.FirstRecordButton.UserClick();

    // Under the Canadian setting a zip shown and left alone keeps its five digits.
    p.CanadaSorter = true;
    z.PreviousRecord.UserClick();
    z.NextRecord_Button.UserClick();
    p.CanadaSorter = false;
    EXPECT_EQ(E("12345", "CA", "05", "Springfield", 2), p.ZipList[1]);

    // Sorts: by city, then by count, largest first.
    z.SortOpt[1].UserClick();
    EXPECT_EQ("34567|Ely Heights|07|1 of 6", shown());
    z.SortOpt[2].UserClick();
    EXPECT_EQ("12345|Springfield|05|1 of 6", shown());

    // Search, by city order: the second candidate is the one; then one found nowhere.
    z.SortOpt[1].UserClick();
    c.host.ExpectInput("Enter the Name or Number to Search for", "ville");
    c.host.ExpectBox("Correct Record?", host::vbNo).ExpectBox("Correct Record?", host::vbYes);
    z.Search.UserClick();
    EXPECT_EQ("12345|Shelbyville|07|5 of 6", shown());
    c.host.ExpectInput("Enter the Name or Number to Search for", "Paris");
    c.host.ExpectBox("Record Not Found.");
    z.Search.UserClick();
    EXPECT_EQ("12345|Shelbyville|07|5 of 6", shown());

    // Add: a zip with no city is refused; one already there too; then a whole card.
    z.AddZip.UserClick();
    EXPECT_EQ("Adding Record Number 7 to 7", z.RCounter.Caption());
    z.Zip.SetText("45678");
    z.State.SetFocus();
    z.State.SetText("ca");
    c.host.ExpectBox("Zipcode 45678 has no city.");
    z.WorkerCode.SetFocus();
    EXPECT_EQ(6, p.ZipCount);
    z.City.SetText("Capital City");
    z.State.SetFocus();
    z.Zip.SetText("12345");
    c.host.ExpectBox("Zipcode 12345 is already in the table.");
    z.WorkerCode.SetFocus();
    z.Zip.SetText("45678");
    z.State.SetFocus();
    c.host.ExpectBox("Add Another Record?", host::vbNo);
    z.WorkerCode.SetFocus();
    EXPECT_EQ(E("45678", "CA", "00", "Capital City", 1), p.ZipList[7]);
    EXPECT_EQ("45678|Capital City|00|7 of 7", shown());

    // Closing writes the table.
    z.CoseForm.UserClick();
    EXPECT_FALSE(z.Loaded());
    EXPECT_NE(std::string::npos, c.ReadFile(p.CrusadeFile("zps")).find(E("45678", "CA", "00", "Capital City", 1) + "\r\n"));
}

TEST_F(ZipEditor, OpensFromTheMenusAsksCanadaPrintsAndCountsTeams) {
    const int zips = p.ZipCount;
    p.ZipCount = 0;
    c.host.ExpectBox("There are no zipcodes in the file to edit.");
    e.mnuZipCodes.UserClick();
    p.ZipCount = zips;

    p.CanadaSorter = true;
    c.host.ExpectBox("Vestrel is set for Canadian Zipcodes.  Is this what you want?", host::vbNo, "Select Canada or USA");
    c.host.OnModal("EditZip", [&](Form& f) {
        auto& z = static_cast<EditZip&>(f);
        EXPECT_EQ("Assign Teams to Zip Codes", z.Caption());
        c.host.ExpectPrinter([](host::PrinterDialog&) { return true; });
        z.PrintZips.UserClick();
        z.CoseForm.UserClick();
    });
    e.mnuTeamAssignments.UserClick();
    EXPECT_FALSE(p.CanadaSorter);
    const auto& out = c.host.printer;
    EXPECT_NE(nullptr, out.FindText(" Zip Code Count"));
    EXPECT_NE(nullptr, out.FindText("912345- Far Away,    09:   1"));
    EXPECT_EQ("Arial", out.FindText("12345- Springfield, CA 05:   2")->font.Name);

    // Team counts: live people only, the deleted one in no team.
    p.TeamNames[5] = "Smith:555-0101";
    e.mnuCntWorkers.UserClick();
    ZipCnt& w = p.Workers();
    const std::string names = w.TeamNameBox.Text(), counts = w.TeamCountBox.Text();
    EXPECT_EQ("Workers", w.Caption());
    EXPECT_NE(std::string::npos, names.find("\r\n05 Smith\r\n"));
    EXPECT_TRUE(names.ends_with("\r\nUnassigned"));
    // Teams 1 to 40, then the six people still at "00".
    EXPECT_EQ(std::string("    0\r\n    0\r\n    1\r\n    0\r\n"), counts.substr(0, 28));
    EXPECT_TRUE(counts.ends_with("\r\n    6"));
}
