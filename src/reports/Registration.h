#pragma once
// Registration lists and tickets for the door of the meeting hall: numbers with
// names, three columns to a page, by name or by number, and the tickets of
// those who came to the current meeting.
#include <string>

struct ReportRun;
struct MasterRecord;

enum class RegistrationKind { ByName, ByNumber, Tickets };

struct RegistrationLayout {
    static constexpr float HeadY = 0.5f;          // the head of page 1 of the lists
    static constexpr float FirstRowY = 1.2f;
    static constexpr float TicketLineY = 25.0f;   // the page line of the tickets' page 1
    static constexpr float PageLineY = 25.7f;     // the page line of the later pages
    static constexpr float TextRoom = 6.9f;       // a line stops short of the next column
    static constexpr int Columns = 3;
    static int RowsPerColumn(RegistrationKind k) { return k == RegistrationKind::Tickets ? 20 : 60; }
};

// An entry: number, last name and first name in 4, 15 and 15, the layout of a
// member line, so that members and people sort and print alike.
std::string RegistrationEntry(const MasterRecord& r);
// What prints for an entry: the number, the last name and the first name.
std::string RegistrationLine(const std::string& entry);

// Builds the list in SortIndex, asks whether the members join it, sorts it and
// prints it. The list is left as the report's: the caller builds the master
// list again, whether the operator printed or cancelled.
void PrintRegistrationList(ReportRun& p, RegistrationKind kind);
