#pragma once
// List entries: the record's number, the key of the list's kind, the record
// number. The list builders and the entry rebuilt after a save compose them
// here, piece by piece, so that the two cannot drift apart.
#include <string>
#include <string_view>

#include "store/RecordLayout.h"

struct ProgramState;

// One entry, composed end to end.
class EntryText {
public:
    // Starts an entry with the person's number.
    void Begin(RecordView r) {
        e_.clear();
        e_.append(r.b + RecordAt::RNum, 4);
    }
    void Text(std::string_view t) { e_.append(t); }
    void Upper(std::string_view t);
    void Char(char c) { e_.push_back(c); }
    // The record number, right-aligned in 4.
    void Pointer(long n);
    // Name parts.
    void AlphaPart(RecordView r);      // first 5 of LName, first 2 of FName, upper case
    void LongPart(RecordView r);       // LName upper case, first 3 of FName as typed
    void LongUpperPart(RecordView r);  // LName and first 3 of FName, upper case
    void FullPart(RecordView r);       // LName and FName, upper case
    // The last three digits of 9999 minus Last: recent attenders first.
    void AttendanceKey(int last);
    void Team(RecordView r) { Text(r.Text(RecordAt::WorkerCode, 2)); }
    const std::string& str() const { return e_; }

protected:
    std::string e_;
};

// What a kind's key hangs on besides the record: choices made when the list was built.
struct KeyChoices {
    bool teamFirst = false;     // "interest", "baptism", "TotalAttend", for the team reports
    bool byLevel = false;       // "decisions"
    bool alphabetical = false;  // "SelWCAttend": "000" for the attendance key
    bool canada = false;        // "zip": CanadaSorter
    char mark = ' ';            // "Advertising": the mark this entry stands for
};

// Appends the key of a kind between the number and the pointer.
using KeyOfKind = void (*)(const KeyChoices&, RecordView, EntryText&);

// The key of a plain kind ("decisions", not "decisions3"); null for a kind whose
// middle is not made from the record alone.
KeyOfKind KeyFor(std::string_view kind);

// The plain kind of a SortName: the number behind "attendnight", "missednight",
// "SelWCAttend" and "decisions" taken off, and "alpha" for an empty name.
std::string PlainKind(const std::string& sortName);

// The entry for MasterRec at record n in a list of kind SortName, as the list's
// builder would make it. Choices that the kind's name does not carry are read
// from the old entry, or from another entry of the list when the old one is an
// add-mode or unsaved mark: all entries of one list share one layout.
std::string ListEntry(const ProgramState& p, const std::string& oldEntry, long n);
// Position of the entry that points at record n; 0 when the list has none.
int FindByRecord(const ProgramState& p, long n);
