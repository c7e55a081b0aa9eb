#include "ostrel/file_utils.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "ostrel/log.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::LogCapture;

struct Freed {
    void operator()(char* text) const { std::free(text); }
};
struct Closed {
    void operator()(FILE* file) const { std::fclose(file); }
};
using Text = std::unique_ptr<char, Freed>;
using Stream = std::unique_ptr<FILE, Closed>;

struct Content {
    int result = 0;
    Text text;
};

Content load(FILE* file) {
    char* out = nullptr;
    const int result = loadContent("state", file, &out);
    return {result, Text(out)};
}

// A stream of which each read gives the next piece, a byte; a piece "" is a failed read (EIO). It claims `size` bytes.
struct Pieces {
    std::vector<std::string> pieces;
    off64_t size = 0;
    std::size_t next = 0;
    off64_t position = 0;
};

ssize_t readPiece(void* cookie, char* buffer, std::size_t size) {
    auto& pieces = *static_cast<Pieces*>(cookie);
    if (pieces.next == pieces.pieces.size()) return 0;
    const std::string& piece = pieces.pieces[pieces.next++];
    if (piece.empty()) {
        errno = EIO;
        return -1;
    }
    return static_cast<ssize_t>(piece.copy(buffer, size));
}

int seekPiece(void* cookie, off64_t* offset, int whence) {
    auto& pieces = *static_cast<Pieces*>(cookie);
    if (whence == SEEK_SET) pieces.position = *offset;
    if (whence == SEEK_END) pieces.position = pieces.size + *offset;
    *offset = pieces.position;
    return 0;
}

Stream streamOf(Pieces& pieces) {
    Stream stream(fopencookie(&pieces, "r", {readPiece, nullptr, seekPiece, nullptr}));
    std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    return stream;
}

class FileUtilsTest : public ostreltest::DeviceTest {
protected:
    Stream streamOfSize(std::size_t size) {
        device().write("content", std::string(size, 'x'));
        return Stream(std::fopen("content", "r"));
    }
};

TEST_F(FileUtilsTest, LoadContentReadsTheWholeFileAndEndsItInZero) {
    device().write("content", "{\"vol\": 3}\n");
    const Stream file(std::fopen("content", "r"));
    LogCapture log;
    const Content content = load(file.get());
    EXPECT_EQ(content.result, 0);
    EXPECT_STREQ(content.text.get(), "{\"vol\": 3}\n");
    EXPECT_EQ(log.text(), "");
}

TEST_F(FileUtilsTest, LoadContentStartsAtTheBeginningWhereverTheStreamStands) {
    device().write("content", "abcdef");
    const Stream file(std::fopen("content", "r"));
    std::fseek(file.get(), 4, SEEK_SET);
    EXPECT_STREQ(load(file.get()).text.get(), "abcdef");
}

TEST_F(FileUtilsTest, LoadContentKeepsZeroBytes) {
    device().write("content", std::string("a\0b", 3));
    const Stream file(std::fopen("content", "r"));
    const Content content = load(file.get());
    EXPECT_EQ(std::string(content.text.get(), 4), std::string("a\0b\0", 4));
}

TEST_F(FileUtilsTest, LoadContentRefusesAnEmptyFile) {
    const Stream file = streamOfSize(0);
    char untouched = 'u';
    char* out = &untouched;
    LogCapture log;
    EXPECT_EQ(loadContent("features", file.get(), &out), -1);
    EXPECT_EQ(log.text(), "features invalid size 0\n");
    EXPECT_EQ(out, &untouched);
}

TEST_F(FileUtilsTest, LoadContentTakesUpToOneByteBelow128KiB) {
    const Stream largest = streamOfSize(131071);
    LogCapture log;
    EXPECT_EQ(load(largest.get()).result, 0);
    const Stream tooLarge = streamOfSize(131072);
    const Content refused = load(tooLarge.get());
    EXPECT_EQ(refused.result, -1);
    EXPECT_EQ(refused.text, nullptr);
    EXPECT_EQ(log.text(), "state invalid size 131072\n");
}

TEST_F(FileUtilsTest, LoadContentTakesASingleByte) {
    const Stream file = streamOfSize(1);
    EXPECT_STREQ(load(file.get()).text.get(), "x");
}

TEST_F(FileUtilsTest, LoadContentOfAPipeHasNoSize) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const Stream file(fdopen(ends[0], "r"));
    LogCapture log;
    EXPECT_EQ(load(file.get()).result, -1);
    EXPECT_EQ(log.text(), "state invalid size -1\n");
    close(ends[1]);
}

TEST_F(FileUtilsTest, LoadContentGoesOnAfterShortReads) {
    Pieces pieces{{"a", "", "b", "", "c", "", "d", "", "e", "", "f", "", "g", "", "h", "", "i", "", "j"}, 10};
    const Stream file = streamOf(pieces);
    LogCapture log;
    const Content content = load(file.get());
    EXPECT_EQ(content.result, 0);
    EXPECT_STREQ(content.text.get(), "abcdefghij");
    EXPECT_EQ(log.text(), "");
}

TEST_F(FileUtilsTest, LoadContentGivesUpAfterTenReadsAndHandsTheBufferOver) {
    Pieces pieces{{"a", "", "b", "", "c", "", "d", "", "e", "", "f", "", "g", "", "h", "", "i", "", "j", "", "k"}, 11};
    const Stream file = streamOf(pieces);
    LogCapture log;
    const Content content = load(file.get());
    EXPECT_EQ(content.result, -1);
    EXPECT_NE(content.text, nullptr);
    EXPECT_EQ(log.text(), "read state (10 vs 11)error : 5:Input/output error\n");
}

TEST_F(FileUtilsTest, LoadContentReportsAFileShorterThanItsSize) {
    Pieces pieces{{"a", "b", "c"}, 7};
    const Stream file = streamOf(pieces);
    LogCapture log;
    errno = 0;
    const Content content = load(file.get());
    EXPECT_EQ(content.result, -1);
    EXPECT_NE(content.text, nullptr);
    EXPECT_EQ(log.text(), "read state (3 vs 7)error : 0:Success\n");
}

TEST_F(FileUtilsTest, LoadContentTakesTheSizeAsThirtyTwoBits) {
    Pieces huge{{"abc"}, off64_t{1} << 31};
    const Stream below = streamOf(huge);
    {
        LogCapture log;
        EXPECT_EQ(load(below.get()).result, -1);
        EXPECT_EQ(log.text(), "state invalid size -2147483648\n");
    }
    Pieces larger{{"a", "b", "c"}, (off64_t{1} << 32) + 3};
    const Stream beyond = streamOf(larger);
    EXPECT_STREQ(load(beyond.get()).text.get(), "abc");
}

TEST_F(FileUtilsTest, LoadContentOfNoStreamFailsInSilence) {
    LogCapture log;
    EXPECT_EQ(load(nullptr).result, -1);
    const Stream file = streamOfSize(3);
    EXPECT_EQ(loadContent("state", file.get(), nullptr), -1);
    EXPECT_EQ(log.text(), "");
}

TEST_F(FileUtilsTest, FileToMemReadsTheWholeFileWithoutATerminator) {
    device().write("content", std::string("a\0bc", 4));
    char buffer[] = "........";
    EXPECT_EQ(fileToMem("content", buffer), 4);
    EXPECT_EQ(std::string(buffer, 8), std::string("a\0bc....", 8));
}

TEST_F(FileUtilsTest, FileToMemOfAMissingFileIsZeroInSilence) {
    LogCapture log;
    char buffer[] = "....";
    EXPECT_EQ(fileToMem("missing", buffer), 0);
    EXPECT_EQ(fileToMem(nullptr, buffer), 0);
    EXPECT_STREQ(buffer, "....");
    EXPECT_EQ(log.text(), "");
}

TEST_F(FileUtilsTest, FileToMemOfAnEmptyFileAndOfAFolderIsZero) {
    device().write("content", "");
    char buffer[] = "....";
    EXPECT_EQ(fileToMem("content", buffer), 0);
    EXPECT_EQ(fileToMem(".", buffer), 0);
    EXPECT_STREQ(buffer, "....");
}

TEST_F(FileUtilsTest, FileToMemTakesThePathAsItIs) {
    device().write("/sys/value", "7");
    char buffer[] = "....";
    EXPECT_EQ(fileToMem("/sys/value", buffer), 0);
    EXPECT_EQ(fileToMem(device().path("/sys/value").c_str(), buffer), 1);
}

TEST_F(FileUtilsTest, DumpToFileWritesExactlyTheseBytes) {
    dumpToFile("out", "a\0bcd", 4);
    EXPECT_EQ(device().read("out"), std::string("a\0bc", 4));
}

TEST_F(FileUtilsTest, DumpToFileReplacesWhatWasThere) {
    device().write("out", "something long");
    dumpToFile("out", "new", 3);
    EXPECT_EQ(device().read("out"), "new");
}

TEST_F(FileUtilsTest, DumpToFileOfNoBytesEmptiesTheFile) {
    for (const int n : {0, -1, INT_MIN}) {
        device().write("out", "old");
        dumpToFile("out", "new", n);
        EXPECT_TRUE(device().exists("out"));
        EXPECT_EQ(device().read("out"), "");
    }
    device().write("out", "old");
    dumpToFile("out", nullptr, 3);
    EXPECT_EQ(device().read("out"), "");
}

TEST_F(FileUtilsTest, UnwritableFileIsToldOnStandardOutput) {
    LogCapture log;
    dumpToFile("missing/out", "x", 1);
    EXPECT_EQ(log.text(), "can not open missing/out\n");
}

TEST_F(FileUtilsTest, UnwritableFileIsToldOnStandardOutputInSyslogModeToo) {
    LogCapture log;
    initLogger(1);
    dumpToFile("missing/out", "x", 1);
    initLogger(0);
    EXPECT_EQ(log.text(), "can not open missing/out\n");
}

TEST_F(FileUtilsTest, DumpToFileOfNoPathIsToldToo) {
    LogCapture log;
    dumpToFile(nullptr, "x", 1);
    EXPECT_EQ(log.text(), "can not open (null)\n");
}

TEST_F(FileUtilsTest, FileWriteIntWritesDecimalDigitsAlone) {
    fileWriteInt("out", 42);
    EXPECT_EQ(device().read("out"), "42");
    fileWriteInt("out", 0);
    EXPECT_EQ(device().read("out"), "0");
    fileWriteInt("out", INT_MIN);
    EXPECT_EQ(device().read("out"), "-2147483648");
}

TEST_F(FileUtilsTest, FileWriteIntReportsAnUnwritableFile) {
    LogCapture log;
    fileWriteInt("missing/value", 1);
    EXPECT_EQ(log.text(), "can not open missing/value\n");
}

TEST_F(FileUtilsTest, FileWriteStringWritesTheTextAlone) {
    fileWriteString("out", "50% 中\n");
    EXPECT_EQ(device().read("out"), "50% 中\n");
    fileWriteString("out", "");
    EXPECT_EQ(device().read("out"), "");
}

TEST_F(FileUtilsTest, FileWriteStringOfNullLeavesTheFileAlone) {
    LogCapture log;
    fileWriteString("out", nullptr);
    EXPECT_FALSE(device().exists("out"));
    device().write("out", "old");
    fileWriteString("out", nullptr);
    EXPECT_EQ(device().read("out"), "old");
    fileWriteString("missing/out", nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST(HexDigitTest, HexToCharGivesUpperCaseDigits) {
    const std::string digits = "0123456789ABCDEF";
    for (unsigned char v = 0; v < 16; ++v) EXPECT_EQ(HexToChar(v), static_cast<unsigned char>(digits[v]));
    for (int v = 16; v < 256; ++v) EXPECT_EQ(HexToChar(static_cast<unsigned char>(v)), 255);
}

TEST(HexDigitTest, CharToHexTakesBothCases) {
    for (int c = 0; c < 256; ++c) {
        int expected = 255;
        if (c >= '0' && c <= '9') expected = c - '0';
        if (c >= 'A' && c <= 'F') expected = c - 'A' + 10;
        if (c >= 'a' && c <= 'f') expected = c - 'a' + 10;
        EXPECT_EQ(CharToHex(static_cast<unsigned char>(c)), expected) << c;
    }
    EXPECT_EQ(CharToHex('f'), 15);
    EXPECT_EQ(CharToHex('g'), 255);
}

}  // namespace
