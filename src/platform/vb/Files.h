#pragma once
// The file layer: text files read with Input # and written with Print #,
// random-access files of fixed record length, and the directory statements.
// Failures throw vb::RuntimeError with the runtime's number.
#include <cstdint>
#include <string>
#include <vector>

namespace vb {

// Input #: fields end at a comma or the line's end; leading blanks are skipped;
// a field that begins with a double quote runs to the closing quote, line ends
// included (what follows up to the comma or line end is dropped). CR LF and LF
// both end a line; an empty line is an empty field.
class TextReader {
public:
    TextReader() = default;
    explicit TextReader(const std::string& path) { Open(path); }
    ~TextReader();
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
    void Open(const std::string& path);   // 53 when missing
    // Reads text already in memory (a file converted to Windows-1252 first).
    void OpenText(std::string text);
    void Close();
    bool IsOpen() const { return open_; }
    bool Eof() const;                     // nothing but an optional final line end left
    std::string InputString();            // 62 past the end
    // As InputString, but an unclosed quote ends at the line's end: for files
    // where one line is one value and a stray quote must not swallow the rest.
    std::string InputStringOnLine();
    long InputLong();                     // Val of the field; 62 past the end
    // "True"/"#TRUE#" or a non-zero number; 13 otherwise (the field is used up all the same)
    bool InputBool();
    std::string LineInput();              // whole line without its end
    // Bytes read so far: where the next field starts.
    std::size_t Position() const { return pos_; }
private:
    std::string Field(bool quoteCrossesLines);
    std::string data_;
    std::size_t pos_ = 0;
    bool open_ = false;
};

// Print #: strings as they stand, integers with a blank before and after
// (a negative number has its "-" instead of the leading blank), booleans as
// "True" / "False", each line ended with CR LF.
class TextWriter {
public:
    enum class Mode { Output, Append };
    TextWriter() = default;
    ~TextWriter();   // closes (commits) if still open; errors are swallowed there
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;
    // atomic: the text goes to a file beside the target and replaces it on
    // Close, so the target is always the old whole file or the new whole file.
    void Open(const std::string& path, Mode mode = Mode::Output, bool atomic = false);
    void Close();      // 57/61 when the disk refuses; the old file then stays
    void Abandon();    // close without committing an atomic write
    bool IsOpen() const { return open_; }
    void Write(const std::string& s);         // no line end (Print #n, s;)
    void PrintLine(const std::string& s);     // Print #n, s
    void PrintLine(long v);                   // " 12 " CR LF
    void PrintLine(int v) { PrintLine(static_cast<long>(v)); }
    void PrintLine(bool v);                   // "True" CR LF
    void PrintLine(const char* s) { PrintLine(std::string(s)); }
    void PrintLine();                         // empty line
private:
    void Flush();
    std::string path_, tmpPath_;
    std::string buffer_;
    int fd_ = -1;
    Mode mode_ = Mode::Output;
    bool atomic_ = false;
    bool open_ = false;
};

// Random access with a fixed record length. Record numbers are 1-based. Every
// Put reaches the operating system before it returns.
class RandomFile {
public:
    RandomFile() = default;
    ~RandomFile();
    RandomFile(const RandomFile&) = delete;
    RandomFile& operator=(const RandomFile&) = delete;
    void Open(const std::string& path, int recordLength);  // creates when missing
    void Close();
    bool IsOpen() const { return fd_ >= 0; }
    const std::string& Path() const { return path_; }
    int RecordLength() const { return recLen_; }
    std::int64_t LOF() const;
    long RecordCount() const { return static_cast<long>(LOF() / recLen_); }
    // Reads record n into buf (recLen bytes). Past the end the buffer is zero-filled
    // and false is returned. 63 for n < 1.
    bool Get(long n, char* buf);
    // 63 for n < 1; 61/57 on write failure, and then the file is back at its old length
    void Put(long n, const char* buf);
    // Records first .. first+count-1 at once; returns how many were read whole
    // (the rest of buf is zero-filled). PutRange writes them in as few calls as
    // the system allows.
    long GetRange(long first, long count, char* buf);
    void PutRange(long first, long count, const char* buf);
    void Lock();                             // advisory lock of the whole file; 70 when held elsewhere
    void Unlock();
    void Sync();                             // flush to the disk (fsync)
    // Whether the open file is still the one at Path() (same device and inode).
    bool AtPath() const;
    // Writes the open file's bytes to Path() and goes on there; the lock is kept.
    // Whatever stands at Path() is replaced, so the caller moves it aside first.
    void WriteBack();
private:
    int fd_ = -1;
    int recLen_ = 0;
    std::string path_;
    bool locked_ = false;
};

// Holds the lock of a random file for a scope, so that no path out of a pass
// leaves the file locked. Lock's error 70 comes out of the constructor.
class FileLock {
public:
    explicit FileLock(RandomFile& f) : f_(f) { f_.Lock(); }
    ~FileLock() { f_.Unlock(); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
private:
    RandomFile& f_;
};

// Directory statements. Patterns take * and ? in the last component and match
// names without regard to case; results are full paths, sorted.
std::vector<std::string> Dir(const std::string& pattern);
bool FileExists(const std::string& path);
bool DirExists(const std::string& path);
std::int64_t FileLen(const std::string& path);              // 53 when missing
void Kill(const std::string& pattern);                      // 53 when nothing matches
void Name(const std::string& from, const std::string& to);  // 58 when the target exists, 53 when the source is missing
void FileCopy(const std::string& from, const std::string& to);
void MkDir(const std::string& path);                        // 75 when it exists
void RmDir(const std::string& path);                        // 75 when not empty, 76 when missing
std::string CurDir();
void ChDir(const std::string& path);                        // 76 when missing
// Path helpers for "/"-separated paths.
std::string FolderOf(const std::string& path);   // without the trailing "/"
std::string FileNameOf(const std::string& path);
std::string JoinPath(const std::string& folder, const std::string& name);

}  // namespace vb
