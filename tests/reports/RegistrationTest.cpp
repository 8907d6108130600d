#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "store/Attendance.h"
#include "support/TestCrusade.h"

using namespace host;

namespace {

// Person i: number 1000 + i, "Person001" up, last seen at meeting `last`.
MasterRecord Person(int i, int last = 3) {
    std::string att(40, '-'), n = std::to_string(1000 + i);
    att[static_cast<std::size_t>(last - 1)] = '1';
    MasterRecord r = MakePerson(n, "Ann", "Person" + n.substr(1), att);
    CountAttendance(r);
    return r;
}

struct Door {
    TestCrusade c;
    EditForm* e = nullptr;
    RecordingSurface& out = c.host.printer;
    ~Door() { c.host.Verify(); }

    void Load(const std::vector<MasterRecord>& people) {
        e = &c.ShowOnEditScreen(people);
        c.p.MeetingNumber = 5;
        c.p.LabelRight = 3;   // columns at 0.8, 7.8 and 14.8
    }
    void Run(forms::Menu EditForm::*menu, bool members = false, bool print = true) {
        out.Clear();
        c.host.ExpectBox("Do you want to include SDA members in this list?", members ? vbYes : vbNo,
                         "Arrange Decisions by Interest Level or Alphabetical", vbYesNo);
        c.host.ExpectPrinter([print](PrinterDialog&) { return print; });
        (e->*menu).UserClick();
    }
    // Each text found with its page, X and Y.
    void ExpectAt(const std::vector<std::tuple<std::string, int, float, float>>& places) const {
        for (const auto& [text, page, x, y] : places) {
            const RecordingSurface::Op* op = out.FindText(text);
            ASSERT_NE(op, nullptr) << text;
            EXPECT_EQ(op->page, page) << text;
            EXPECT_NEAR(op->x, x, 1e-4) << text;
            EXPECT_NEAR(op->y, y, 1e-4) << text;
        }
    }
    std::vector<std::string> Lines() const {
        std::vector<std::string> t;
        for (const auto* op : out.TextOps())
            if (op->font == Fonts::fntTimes10 && !op->text.empty())
                t.push_back(op->text.substr(0, op->text.find_last_not_of(' ') + 1));
        return t;
    }
};

}  // namespace

TEST(RegistrationList, ColumnsOfSixtyNamesOrTwentyTicketsThreeToAPage) {
    Door d;
    std::vector<MasterRecord> people;
    for (int i = 185; i >= 1; --i) people.push_back(Person(i, i <= 25 ? 5 : i % 2 ? 4 : 6));
    MasterRecord gone = Person(186, 5);
    gone.WorkerCode = "##";
    people.push_back(gone);
    d.Load(people);
    const float line = 0.4f;   // Times 10 on the recording surface
    d.Run(&EditForm::mnuIntMem);
    d.ExpectAt({{"Registration List for Fall Sunday, November 22, 2026", 1, 0.8f, 0.5f},
                {"1060    Person060, Ann", 1, 0.8f, 1.2f + 59 * line},
                {"1061    Person061, Ann", 1, 7.8f, 1.2f},
                {"1121    Person121, Ann", 1, 14.8f, 1.2f},
                {"1181    Person181, Ann", 2, 0.8f, 1.2f},
                {"Registration List  as of Meeting #5 p 2", 2, 0.8f, 25.7f}});
    EXPECT_EQ(d.out.FindText(" p 1"), nullptr);   // page 1 has its head instead

    // Tickets: those last seen tonight only, a name and two empty lines each.
    d.Run(&EditForm::mnuMemIntTickets);
    d.ExpectAt({{"Tickets for Meeting #5 p 1", 1, 0.8f, 25.0f},
                {"1020    Person020, Ann", 1, 0.8f, 1.2f + 19 * 3 * line},
                {"1021    Person021, Ann", 1, 7.8f, 1.2f}});
    EXPECT_EQ(d.Lines().size(), 26u);
    // A night nobody came to prints its page line alone.
    d.c.p.MeetingNumber = 7;
    d.Run(&EditForm::mnuMemIntTickets);
    EXPECT_EQ(d.Lines(), std::vector<std::string>{"Tickets for Meeting #7 p 1"});
}

TEST(RegistrationList, MembersJoinOnceAndSortByNameOrByNumber) {
    const std::vector<std::tuple<forms::Menu EditForm::*, bool, std::vector<std::string>>> cases = {
        {&EditForm::mnuIntMem, true, {"1003    Able, Bo", "0999    Able, Cy", "1001    Cole, Al", "0998    Zane, Zed"}},
        {&EditForm::mnunamesbynumber, true, {"0998    Zane, Zed", "0999    Able, Cy", "1001    Cole, Al", "1003    Able, Bo"}},
        {&EditForm::mnunamesbynumber, false, {"1001    Cole, Al", "1003    Able, Bo"}},
    };
    for (const auto& [menu, members, lines] : cases) {
        Door d;
        d.Load({MakePerson("1003", "Bo", "Able"), MakePerson("1001", "Al", "Cole")});
        // A member who also registered (1001), a member line twice (0999).
        d.c.p.MemberList = {"", "1001Cole           Al", "0999Able           Cy", "0998Zane           Zed",
                            "0999Other          Name"};
        d.c.p.MemberCount = 4;
        d.Run(menu, members);
        EXPECT_EQ(d.Lines(), lines);
    }
}

TEST(RegistrationList, PrintedOrCancelledTheMasterListComesBackWithThePersonOnScreen) {
    for (bool print : {true, false}) {
        Door d;
        d.Load({MakePerson("0003", "Cy", "Cole"), MakePerson("0001", "Al", "Able"), MakePerson("0002", "Bo", "Bell")});
        d.e->ChgRec_Click(2);
        d.c.p.SortName = "marked";   // a filter on screen
        d.Run(&EditForm::mnunamesbynumber, false, print);
        EXPECT_EQ(d.out.Documents(), print ? 1 : 0);
        EXPECT_EQ(d.c.p.SortName + d.c.p.PriorSortName, "alphamarked");
        EXPECT_EQ(d.c.p.IndexCount, 3);
        EXPECT_EQ(d.e->LName.Text(), "Bell");
        EXPECT_EQ(d.e->ActiveControl(), &d.e->RNum);
    }
}
