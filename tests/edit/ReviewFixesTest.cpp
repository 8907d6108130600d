// Faults found on the edit screen by a first evening's use, and rules nothing else guards.
#include <gtest/gtest.h>

#include <functional>

#include "edit/CardCrusade.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "startup/Lifecycle.h"
#include "startup/frmSplash.h"
#include "store/ListEntry.h"
#include "store/Settings.h"
#include "tables/AppointmentFm.h"

using namespace forms;
using vb::RTrim;

namespace {
class Review : public CardCrusade {
protected:
    using CardCrusade::CardCrusade;
    void ShowRecordNo(long n) {
        p.CurrentIndex = FindByRecord(p, n);
        ASSERT_TRUE(FetchCurrentRecord(p));
        e.ShowRecord();
        e.OpenRNum = e.RNum.Text();
    }
    RecordBytes Disk(long n) const { return EncodeRecord(c.ReadRecord(n)); }
    // Opens the appointment dialog by a click on the Class box; the script closes it.
    void Appointment(std::function<void(AppointmentFm&)> script) {
        c.host.OnModal("AppointmentFm", [script](Form& f) { script(static_cast<AppointmentFm&>(f)); });
        e.Class.UserClick();
    }
};
}  // namespace

TEST_F(Review, BackingOutOfTheMeetingBoxLeavesTheShownPersonAlone) {
    p.MeetingNumber = 2;
    struct Row { std::string answer; std::string box; };
    for (const Row& r : std::vector<Row>{{"", ""},
                                         {"41", "The Meeting number you entered is invalid."},
                                         {"9", "You have entered Meeting Number: 9."}}) {
        ShowRecordNo(1);   // Ann Baker, 0012
        c.host.ExpectInput("Enter the Meeting Number", r.answer);
        if (!r.box.empty()) c.host.ExpectBox(r.box, host::vbNo);
        e.mnuAddRecords_Click();
        EXPECT_FALSE(p.AddMode) << r.answer;
        // Leaving the number box finds no duplicate, and the save keeps the number.
        e.RNum.SetFocus();
        e.FName.SetFocus();
        EXPECT_EQ("0012", e.RNum.Text()) << r.answer;
        ASSERT_TRUE(e.SaveChanges());
        EXPECT_EQ("0012", RTrim(c.ReadRecord(1).RNum)) << r.answer;
        EXPECT_EQ(8, c.RecordsOnDisk());
    }
}

namespace {
struct BoxRow {
    const char* what;
    std::function<void(MasterRecord&)> stored;
    std::function<void(EditForm&)> act = nullptr;   // nothing: only looked at
    std::function<bool(const MasterRecord&)> written = nullptr;
};
const std::vector<BoxRow> BoxRows = {
    {"mail list 1", [](MasterRecord& r) { r.MailList = 1; }}, {"mail list -1", [](MasterRecord& r) { r.MailList = -1; }},
    {"class 1", [](MasterRecord& r) { r.Class = 1; }}, {"class -1", [](MasterRecord& r) { r.Class = -1; }},
    {"mark -1", [](MasterRecord& r) { r.MarkToVisit = -1; }}, {"mark 1", [](MasterRecord& r) { r.MarkToVisit = 1; }},
    {"empty date", [](MasterRecord& r) { r.BaptDate = "12:00AM"; }},
    {"notes comma", [](MasterRecord& r) { r.Notes = "Call first, after six"; }},
    {"class ticked", [](MasterRecord& r) { r.Class = 0; }, [](EditForm& f) { f.Class.SetValue(vbChecked); },
     [](const MasterRecord& r) { return r.Class == 1; }},
    {"mark ticked", [](MasterRecord& r) { r.MarkToVisit = 0; }, [](EditForm& f) { f.chkMarkToVisit.SetValue(vbChecked); },
     [](const MasterRecord& r) { return r.MarkToVisit == -1; }},
    {"notes typed", [](MasterRecord& r) { r.Notes = "Call first, after six"; },
     [](EditForm& f) { f.Notes.SetText("Call first, after seven"); },
     [](const MasterRecord& r) { return RTrim(r.Notes) == "Call first after seven"; }},
};

std::vector<MasterRecord> BoxPeople() {
    std::vector<MasterRecord> people;
    for (std::size_t i = 0; i < BoxRows.size(); ++i) {
        people.push_back(MakePerson(vb::Right("000" + std::to_string(i + 1), 4), "P", std::string("Name") + char('A' + i)));
        BoxRows[i].stored(people.back());
    }
    return people;
}
class ReviewBoxes : public Review {
protected:
    ReviewBoxes() : Review(BoxPeople()) {}
};
}  // namespace

TEST_F(ReviewBoxes, APersonOnlyLookedAtIsNeverWrittenAndATickedBoxIsOne) {
    for (std::size_t i = 0; i < BoxRows.size(); ++i) {
        const long n = static_cast<long>(i + 1);
        const RecordBytes before = Disk(n);
        ShowRecordNo(n);
        if (BoxRows[i].act) BoxRows[i].act(e);
        ASSERT_TRUE(e.SaveChanges());
        if (BoxRows[i].written) EXPECT_TRUE(BoxRows[i].written(c.ReadRecord(n))) << BoxRows[i].what;
        else EXPECT_TRUE(before == Disk(n)) << BoxRows[i].what;
    }
}

TEST_F(Review, EveryFieldOfTheComparisonReachesTheFile) {
    const std::pair<Control*, std::string> typed[] = {
        {&e.FName, "Anne"}, {&e.LName, "Bakker"}, {&e.RNum, "0777"}, {&e.Attendance, "11" + std::string(38, '-')}, {&e.Address, "3 Elm St"},
        {&e.City, "Salem"}, {&e.State, "OR"}, {&e.Zip, "97301"}, {&e.Phone, "555-0199"}, {&e.WorkerCode, "07"},
        {&e.Visits, "h02"}, {&e.IntLevel, "C"}, {&e.MapCode, "K7"}, {&e.Attend, "2"}, {&e.Last, "2"},
        {&e.Age, "40-49"}, {&e.Advertising, "N......"}, {&e.RelPref, "Lutheran"}, {&e.Notes, "Prefers mornings"},
        {&e.Decisions, "C--------"}, {&e.BaptDate, "06/01/09"}, {&e.BirthDate, "01/02/60"}, {&e.txtEmail, "a@b.com"}};
    std::vector<std::pair<std::string, std::function<void()>>> changes = {{"IntFlag", [&] { p.MasterRec.IntFlag = -1; }}};
    for (auto [box, text] : typed) changes.emplace_back(box->Name(), [box, text] { box->SetText(text); });
    for (Control* box : {static_cast<Control*>(&e.MailList), static_cast<Control*>(&e.Class), static_cast<Control*>(&e.chkMarkToVisit)})
        changes.emplace_back(box->Name(), [box] { box->SetValue(box->Value() ? vbUnchecked : vbChecked); });
    for (const auto& [field, change] : changes) {
        ShowRecordNo(1);
        const RecordBytes before = Disk(1);
        change();
        ASSERT_TRUE(e.SaveChanges());
        EXPECT_FALSE(before == Disk(1)) << field << " changed alone was not written";
    }
}

TEST_F(Review, AnAppointmentTicksOnlyItsOwnPerson) {
    const auto setMonday4 = [](AppointmentFm& a) {
        a.optAptDay[1].SetValue(true);
        a.optAptTime[8].SetValue(true);
        a.btnSave.UserClick();
    };
    ShowRecordNo(1);
    Appointment(setMonday4);
    EXPECT_EQ(vbChecked, e.Class.Value());
    e.ChgRec_Click(2);
    EXPECT_EQ(vbUnchecked, e.Class.Value()) << e.LName.Text();
    const long next = p.RecordPos;
    e.ChgRec_Click(2);
    EXPECT_EQ(std::make_pair(0, 1), std::make_pair(int{c.ReadRecord(next).Class}, int{c.ReadRecord(1).Class}));
    ShowRecordNo(2);
    Appointment(setMonday4);
    c.host.ExpectBox("Undo will Erase all of the changes", host::vbYes, "Undo Record Changes");
    e.mnuUndo_Click();
    EXPECT_EQ(std::make_pair(static_cast<int>(vbUnchecked), std::string()), std::make_pair(e.Class.Value(), e.Visits.Text()));
}

TEST_F(Review, CancelOfTheAppointmentKeepsWhatTheScreenHolds) {
    ShowRecordNo(1);
    p.CallerForm = "edit";   // no earlier Save has left its word
    e.Notes.SetText("Typed, not saved yet");
    e.Visits.SetText("h01");
    const int classBefore = e.Class.Value();
    Appointment([](AppointmentFm& a) {
        a.optAptDay[2].SetValue(true);
        a.btnCancelApt.UserClick();
    });
    e.Form_Activate();   // the screen comes back to the front
    EXPECT_EQ(std::make_tuple(std::string("Typed, not saved yet"), std::string("h01"), std::string("edit"), classBefore),
              std::make_tuple(e.Notes.Text(), e.Visits.Text(), p.CallerForm, e.Class.Value()));

    // Erasing asks in the words given for it.
    e.Visits.SetText("h01A24");
    Appointment([&](AppointmentFm& a) {
        c.host.ExpectBox("You are about to erase this Appointment  that has been scheduled.\r\nIs that what you want to do?",
                         host::vbYes, "Erase Appointment");
        a.btnClear.UserClick();
        a.btnSave.UserClick();
    });
    EXPECT_EQ("h01", e.Visits.Text());
}

TEST_F(Review, TheNotesCautionComesOncePerVisit) {
    const std::string caution = "Notes entered here are only for data entry items";
    ShowRecordNo(1);
    c.host.ExpectBox(caution, host::vbOK, "Note Box Caution!");
    e.Notes.UserMouseDown(vbLeftButton, 0, 0, 0);
    e.Notes.UserMouseDown(vbLeftButton, 0, 0, 0);   // same visit: quiet
    e.ChgRec_Click(2);
    e.ChgRec_Click(1);   // back to the same person: a new visit
    c.host.ExpectBox(caution, host::vbOK, "Note Box Caution!");
    e.Notes.UserMouseDown(vbLeftButton, 0, 0, 0);
    c.host.Verify();
}

TEST_F(Review, SearchAndChoiceBoxesOfAFirstEvening) {
    // A new crusade's list, in the order the cards were typed.
    p.SortName = "unsorted";
    p.SortIndex.assign(1, "unsorted");
    for (long n = 1; n <= 8; ++n) p.SortIndex.push_back("-------" + RecordPointer(n));
    ShowRecordNo(3);
    c.host.ExpectBox("0100   Bob Bell", host::vbYes, "Searching for Last Name");
    e.SearchFor("bell");
    EXPECT_EQ(std::make_pair(std::string("Bell"), 8), std::make_pair(e.LName.Text(), p.IndexCount));

    // A church not in the list is kept as typed, and the leaving rule maps it.
    e.RelPref.SetFocus();
    e.TypeText("mormon");
    c.host.ExpectInput("Enter the Letter(s):", "");   // the box after it asks on arrival
    e.FName.SetFocus();
    EXPECT_EQ("LDS", e.RelPref.Text());

    // Letters for a meeting number are a wrong answer, asked again; an empty answer ends.
    c.host.ExpectInput("Enter the Meeting number you would like to see.", "abc");
    c.host.ExpectInput("You must enter a number between 1 and", "");
    e.mnuFilterSelMtg_Click();
    c.host.Verify();

    // The prayer list with no file: none to view.
    c.host.openResult = 2;
    c.host.ExpectBox("There are no Prayer Requests to view.");
    e.mnuViewPrayerList_Click();
}

TEST_F(Review, AZipFilledStateIsSelectedWhenTheFocusArrives) {
    p.ZipCount = 1;
    p.ZipList[1] = "62701     IL07Springfield       4";
    StartAdding();
    e.Zip.SetFocus();
    e.TypeText("49503");   // not in the table: the state comes from its first entry
    e.PressKey(vbKeyReturn, 0, vbKeyReturn);
    ASSERT_EQ(&e.State, e.ActiveControl());
    e.TypeText("MI");
    EXPECT_EQ("MI", e.State.Text());
}

TEST(ReviewRestart, TheScreenComesUpWithTheFocusInTheSearchBox) {
    TestCrusade c;
    c.WriteRecords({MakePerson("0012", "Ann", "Baker"), MakePerson("0100", "Bob", "Bell")});
    Program p(c.host, c.appPath);
    c.p.DataFile = c.dataFile;
    SaveSettings(c.p);
    c.host.OnModal("frmSplash", [&](Form& f) {
        auto& s = static_cast<frmSplash&>(f);
        s.btnLastCrusade_Click();
        if (s.Loaded()) s.Unload();
    });
    Main(p);
    EXPECT_EQ(&p.Edit().SearchBox, p.Edit().ActiveControl());
}
