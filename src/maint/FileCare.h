#pragma once
// The file parts of backup, restore and compact: each takes paths or the
// program's state, does the work on the disk and says what happened; the edit
// screen above asks the questions and shows the result.
#include <functional>
#include <string>

struct ProgramState;

namespace maint {

// What stands after the last "/" (or "\") of a path.
std::string FileName(const std::string& path);
// A target on a diskette drive's letter or a mounted removable medium.
bool RemovableTarget(const std::string& path);
// The 133rd line of an information file (when it was written); empty when short or missing.
std::string InfoStamp(const std::string& infPath);

// The crusade files of a .dta in the order a backup copies them: .inf, .mem,
// .zps, .dta, then the prayer list.
std::vector<std::string> BackupOrder(const std::string& dataFile);

// Copies the crusade's files to the target's folder under their own names.
// Files are written aside and renamed, so a backup that fails leaves the
// backup before it as it was. Then read back: each file must have its
// source's byte count, and the record file its record count. Empty when all
// went well, else why not, in the operator's words.
std::string BackupFiles(const std::string& dataFile, const std::string& target);

// Whether a backup's files make a crusade: a record file whose length is a
// whole number of records that look like records, and an information file
// that reads. Empty when they do, else why not.
std::string CheckBackup(const std::string& backupDta);
// Copies the backup's files over the crusade's, all staged before any is
// renamed into place. Files the backup does not have are left as they are.
// vb::RuntimeError on failure.
void RestoreFiles(const std::string& backupDta, const std::string& dataFile);

// Writes the records that are not deleted to "<name>.new" (emptied first, so
// no tail of an earlier run survives), syncs it and renames it over the
// record file. File number 1 is closed; the caller opens it again. `progress`
// hears the record reached and the count now and then. Returns the records
// kept; vb::RuntimeError on failure, with the record file untouched and no
// ".new" left behind.
long Compact(ProgramState& p, const std::function<void(long, long)>& progress);

}  // namespace maint
