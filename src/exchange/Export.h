#pragma once
// The exports: the current list (or the whole file with the members) written
// out as text for a word processor's mail merge, a street-map program, an
// e-mail program or general use. The texts are made here from the record file
// and the tables; the routines below ask their questions through the host and
// write the file aside, renaming it into place only when it is whole.
#include <string>

struct ProgramState;

namespace exchange {

// How the current list is described in the questions: "all names" unless its
// kind has words of its own.
std::string ListWords(const ProgramState& p);

// The bytes of each file, every line ended with CR LF. `mailListOnly` leaves
// out the persons whose MailList is 0.
std::string MailMergeText(ProgramState& p, bool mailListOnly);
std::string MapText(ProgramState& p, bool mailListOnly);
std::string EMailText(ProgramState& p);
std::string TextFileText(ProgramState& p);
// Every record not deleted and every member, by name.
std::string NameAndNumberText(ProgramState& p);
// The names that stand both among the records and among the members.
std::string DuplicateNamesText(ProgramState& p);

// Writes the bytes to a file beside `path` and renames it to `path` when it
// is whole. On failure the operator is told why, nothing is left under the
// name but what was there before, and false is returned.
bool WriteExport(ProgramState& p, const std::string& path, const std::string& bytes);

// The menu routines: question, dialog, file, closing message. Each returns
// the path written, or empty when the operator stopped or the file failed.
std::string MailMerge(ProgramState& p);
std::string MapExport(ProgramState& p);
std::string EMailExport(ProgramState& p);
std::string TextExport(ProgramState& p);
std::string NameAndNumberExport(ProgramState& p);
std::string DuplicateNamesExport(ProgramState& p);

}  // namespace exchange
