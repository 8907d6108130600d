#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "ErrorOf.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "support/TestCrusade.h"

using namespace vb;
namespace fs = std::filesystem;

namespace {

class Files : public ::testing::Test {
protected:
    std::string P(const std::string& name) const { return (dir_ / name).string(); }
    void Spit(const std::string& name, const std::string& bytes) const { std::ofstream(P(name), std::ios::binary) << bytes; }
    std::string Slurp(const std::string& name) const {
        std::ifstream in(P(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    std::size_t Entries() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()));
    }

    TempFolder folder_;
    fs::path dir_ = folder_.path();
};

}  // namespace

TEST_F(Files, InputReadsFieldsTheWayTheRuntimeDoes) {
    Spit("a.inf", "Crusade, Part two\r\n  \"Smith, John\" ignored,next\r\n 42 \r\n\r\n\tTrue\r\n-7 \nFalse\n3.75,x\n"
                  "11/22/2026 3:04:05 PM\n\"unclosed\ntail\r\n");
    TextReader r(P("a.inf"));
    auto n = [](long v) { return std::to_string(v); };
    // Read in order (a braced list is evaluated left to right); 3.75 rounds as an assignment does.
    EXPECT_EQ((std::vector<std::string>{"Crusade", "Part two", "Smith, John", "next", "42", "", "1", "-7", "0", "4", "x"}),
              (std::vector<std::string>{r.InputString(), r.InputString(), r.InputString(), r.InputString(),
                                        n(r.InputLong()), r.InputString(), n(r.InputBool()), n(r.InputLong()),
                                        n(r.InputBool()), n(r.InputLong()), r.InputString()}));
    // A date is no boolean; the field is used up all the same.
    EXPECT_EQ(ErrorOf([&] { r.InputBool(); }), errTypeMismatch);
    EXPECT_EQ(r.InputString(), "unclosed\ntail\r\n");
    EXPECT_TRUE(r.Eof());
    EXPECT_EQ(ErrorOf([&] { r.InputLong(); }), errInputPastEnd);
}

TEST_F(Files, EofAndAFileCutShort) {
    // Only a final line end left counts as the end; an empty line before it does not.
    using Lines = std::vector<std::string>;
    const std::pair<const char*, Lines> files[] = {
        {"a\r\nb", {"a", "b"}}, {"a\n\n\r\n", {"a", ""}}, {"a\r\n\n", {"a"}}, {"", {}}};
    for (const auto& [bytes, lines] : files) {
        Spit("t.txt", bytes);
        TextReader r(P("t.txt"));
        Lines read;
        while (!r.Eof()) read.push_back(r.LineInput());
        EXPECT_EQ(lines, read) << bytes;
        EXPECT_EQ(ErrorOf([&] { r.InputString(); }), errInputPastEnd) << bytes;
    }

    TextReader r;
    const std::pair<std::string, int> opens[] = {
        {P("missing.txt"), errFileNotFound}, {P("nofolder/x.txt"), errPathNotFound}, {dir_.string(), errPathFileAccess}};
    for (const auto& [path, err] : opens) EXPECT_EQ(ErrorOf([&] { r.Open(path); }), err) << path;
}

TEST_F(Files, PrintWritesExactBytes) {
    TextWriter w;
    w.Open(P("out.txt"));
    w.PrintLine("Crusade");
    for (long n : {5L, -5L, 0L}) w.PrintLine(n);
    for (bool b : {true, false}) w.PrintLine(b);
    w.PrintLine();
    for (const char* part : {"a", "b"}) w.Write(part);
    w.PrintLine("\xE9");
    w.Close();
    const std::string printed = "Crusade\r\n 5 \r\n-5 \r\n 0 \r\nTrue\r\nFalse\r\n\r\nab\xE9\r\n";
    EXPECT_EQ(Slurp("out.txt"), printed);
    // Append adds to the end; Output starts the file afresh.
    for (const auto& [mode, want] : {std::pair{TextWriter::Mode::Append, printed + " 12 \r\n"},
                                     std::pair{TextWriter::Mode::Output, std::string(" 12 \r\n")}}) {
        w.Open(P("out.txt"), mode);
        w.PrintLine(12);
        w.Close();
        EXPECT_EQ(Slurp("out.txt"), want);
    }
    EXPECT_EQ(ErrorOf([&] { w.Open(P("nofolder/x.txt")); }), errPathNotFound);
}

TEST_F(Files, AtomicWriterReplacesWholeOrNotAtAll) {
    Spit("c.inf", "old\r\n");
    for (bool abandon : {true, false}) {
        TextWriter w;
        w.Open(P("c.inf"), abandon ? TextWriter::Mode::Output : TextWriter::Mode::Append, true);
        w.PrintLine("new");
        if (abandon) w.Abandon();
    }   // the second is committed by the destructor
    EXPECT_EQ(Slurp("c.inf"), "old\r\nnew\r\n");
    EXPECT_EQ(Entries(), 1u);

    // When the rename cannot happen Close throws, the temporary file goes and the target stays.
    TextWriter w;
    w.Open(P("d.inf"), TextWriter::Mode::Output, true);
    w.PrintLine("x");
    fs::create_directory(dir_ / "d.inf");
    Spit("d.inf/keep", "k");
    EXPECT_NE(ErrorOf([&] { w.Close(); }), 0);
    EXPECT_TRUE(fs::is_directory(dir_ / "d.inf"));
    EXPECT_EQ(Entries(), 2u);
}

TEST_F(Files, DiskFullIsError61) {
    if (!fs::exists("/dev/full")) GTEST_SKIP();
    TextWriter w;
    w.Open("/dev/full");
    w.PrintLine("x");
    EXPECT_EQ(ErrorOf([&] { w.Close(); }), errDiskFull);
}

TEST_F(Files, RandomRecords) {
    RandomFile f;
    f.Open(P("r.dta"), 10);
    f.Put(1, "0123456789");
    f.Put(3, "abcdefghij");
    EXPECT_EQ(f.LOF(), 30);
    char buf[10];
    // The gap reads as zeros; past the end Get says so and gives zeros too.
    const std::string zeros(10, '\0');
    const std::tuple<long, bool, std::string> gets[] = {
        {1, true, "0123456789"}, {3, true, "abcdefghij"}, {2, true, zeros}, {4, false, zeros}};
    for (const auto& [n, there, want] : gets) {
        std::fill(buf, buf + 10, 'x');
        EXPECT_EQ(there, f.Get(n, buf)) << n;
        EXPECT_EQ(want, std::string(buf, 10)) << n;
    }
    EXPECT_EQ(ErrorOf([&] { f.Get(0, buf); }), errBadRecordNumber);
    f.Close();

    // A length that is no multiple of the record: the count rounds down and the tail stays.
    Spit("t.dta", std::string(20, 'r') + "tail");
    f.Open(P("t.dta"), 10);
    EXPECT_EQ(f.RecordCount(), 2);
    EXPECT_FALSE(f.Get(3, buf));
    EXPECT_EQ(std::string(buf, 10), std::string("tail") + std::string(6, '\0'));
    f.Put(1, "NNNNNNNNNN");
    f.Close();
    EXPECT_EQ(Slurp("t.dta"), std::string(10, 'N') + std::string(10, 'r') + "tail");

    EXPECT_EQ(ErrorOf([&] { f.Open(P("x.dta"), 0); }), errBadRecordLength);
    EXPECT_EQ(ErrorOf([&] { f.Open(P("nofolder/x.dta"), 10); }), errPathNotFound);
}

TEST_F(Files, DirMatchesWildcardsWithoutCaseAndTheFileStatements) {
    for (const char* n : {"A.DTA", "b.dta", "c.inf", "noext", ".hidden.dta", "ab.dta.bak"}) Spit(n, "x");
    fs::create_directory(dir_ / "folder.dta");
    using Names = std::vector<std::string>;
    const std::pair<const char*, Names> dirs[] = {
        {"*.dta", {"A.DTA", "b.dta"}}, {"?.DtA", {"A.DTA", "b.dta"}}, {"a*", {"A.DTA", "ab.dta.bak"}},
        {"B.Dta", {"b.dta"}},          {"noext.*", {"noext"}},        {"*.zps", {}},  {"nofolder/*", {}}};
    for (const auto& [pattern, names] : dirs) {
        Names want;
        for (const std::string& n : names) want.push_back(P(n));
        EXPECT_EQ(want, Dir(P(pattern))) << pattern;
    }
    EXPECT_EQ(Dir(P("*.*")).size(), 5u);

    Spit("a.txt", "hello"), Spit("b.txt", "other");
    fs::create_directory(dir_ / "full");
    Spit("full/f", "");
    const std::pair<std::function<void()>, int> faults[] = {
        {[&] { FileLen(P("zz")); }, errFileNotFound},
        {[&] { Name(P("a.txt"), P("b.txt")); }, errFileExists},
        {[&] { Name(P("zz"), P("c.txt")); }, errFileNotFound},
        {[&] { FileCopy(P("zz"), P("y.txt")); }, errFileNotFound},
        {[&] { Kill(P("*.zip")); }, errFileNotFound},
        {[&] { MkDir(P("no/sub")); }, errPathNotFound},
        {[&] { RmDir(P("sub")); }, errPathNotFound},
        {[&] { ChDir(P("none")); }, errPathNotFound},
        {[&] { MkDir(P("full")); }, errPathFileAccess},
        {[&] { RmDir(P("full")); }, errPathFileAccess},
    };
    for (const auto& [step, err] : faults) EXPECT_EQ(err, ErrorOf(step));
    EXPECT_EQ(FileLen(P("a.txt")), 5);
    Name(P("a.txt"), P("c.txt"));
    EXPECT_FALSE(FileExists(P("a.txt")));
    FileCopy(P("c.txt"), P("b.txt"));   // over an existing file
    EXPECT_EQ(Slurp("b.txt"), "hello");
    EXPECT_NE(ErrorOf([&] { FileCopy(P("c.txt"), P("c.txt")); }), 0);
    EXPECT_EQ(Slurp("c.txt"), "hello");
    Kill(P("*.TXT"));
    EXPECT_FALSE(FileExists(P("b.txt")));

    MkDir(P("sub"));
    EXPECT_FALSE(FileExists(P("sub")));
    RmDir(P("sub"));
    EXPECT_FALSE(DirExists(P("sub")));

    const std::string here = CurDir();
    ChDir(dir_.string());
    EXPECT_EQ(fs::path(CurDir()), fs::canonical(dir_));
    ChDir(here);
}

TEST(Paths, SplitAndJoin) {
    const std::pair<std::string, std::string> rows[] = {
        {FolderOf("/a/b/c.dta"), "/a/b"}, {FolderOf("/c.dta"), "/"}, {FolderOf("c.dta"), ""},
        {FileNameOf("/a/b/c.dta"), "c.dta"}, {FileNameOf("c.dta"), "c.dta"}, {JoinPath("/a", "c"), "/a/c"},
        {JoinPath("/a/", "c"), "/a/c"}, {JoinPath("", "c"), "c"}, {JoinPath(FolderOf("/c.dta"), "d"), "/d"}};
    for (const auto& [got, want] : rows) EXPECT_EQ(want, got);
}

TEST(Faults, AFileFaultNamesItsFileForTheOperator) {
    const std::string dir = ::testing::TempDir() + "vestrel-fault";
    const std::string missing = dir + "/nowhere/Spring.inf";
    // A pattern that matched nothing names no file.
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { TextReader r(missing); }, missing}, {[&] { MkDir(missing); }, missing},
        {[&] { FileCopy(missing, dir + "/x"); }, missing}, {[&] { Kill(missing); }, ""}};
    for (const auto& [step, path] : cases) {
        try {
            step();
            ADD_FAILURE() << path;
        } catch (const RuntimeError& e) {
            const std::string text = FaultText(e);
            EXPECT_EQ(path, e.Path);
            EXPECT_EQ(path.empty(), text.find("Vestrel could not use the file:\n" + path) == std::string::npos) << text;
            EXPECT_EQ(std::string::npos, text.find("Run-time error")) << text;
        }
    }
}
