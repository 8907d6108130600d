#pragma once
// The record file and the crusade-wide defaults.
#include <string>

struct ProgramState;

// Opens DataFile as file number 1 and sets RecordCount (a partial tail record is ignored).
// A numbering the information file could not give is taken from the records.
void OpenRecordFile(ProgramState& p);
// Reads record n into MasterRec after clearing it; false past the end of the file.
bool GetRecord(ProgramState& p, long n);
// Writes MasterRec to record n; a record file gone from its place is offered back first.
void PutRecord(ProgramState& p, long n);
// Writes `count` whole records from `bytes` as records first.., with the same check.
void PutRecords(ProgramState& p, long first, long count, const char* bytes);
// Draws the next registration number, passing over numbers the list holds, and
// rewrites the information file at once.
// Empty, with LastRNum as it was, when that file could not be written (the
// operator has been told): no number is handed out unless it is saved.
[[nodiscard]] std::string NextRNum(ProgramState& p);
// The crusade-wide lists at their defaults.
void DefaultLists(ProgramState& p);
// The entry of the "alpha" list for MasterRec at record n.
std::string AlphaEntry(const ProgramState& p, long n);
// The last 4 characters of three blanks and the number in Str form.
std::string RecordPointer(long n);
