#include "writer/text_codec.h"

#include <string>

#include <gtest/gtest.h>

#include "writer/file_store.h"

namespace writer {
namespace {

using namespace std::string_literals;

struct Case {
    const char* name;
    std::string bytes;
    Encoding encoding;
    LineEnd lineEnd;
    std::u16string text;
    std::string edited;  // the bytes after a line "x" was appended
};

TEST(TextCodec, GivesTheBytesBackInEachEncodingAndLineEnd)
{
    const Case cases[] = {
        {"empty", "", Encoding::Utf8, LineEnd::Lf, u"", "x\n"},
        {"UTF-8", "a\xC3\xA9\n\n", Encoding::Utf8, LineEnd::Lf, u"a\u00E9\r\r", "a\xC3\xA9\n\nx\n"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF\xE4\xB8\xAD\r\n", Encoding::Utf8Bom, LineEnd::CrLf, u"\u4E2D\r",
         "\xEF\xBB\xBF\xE4\xB8\xAD\r\nx\r\n"},
        {"the mark alone", "\xEF\xBB\xBF", Encoding::Utf8Bom, LineEnd::Lf, u"", "\xEF\xBB\xBFx\n"},
        {"UTF-16 LE, a pair", "\xFF\xFE\x3D\xD8\x00\xDE\r\0\n\0"s, Encoding::Utf16Le, LineEnd::CrLf,
         u"\U0001F600\r", "\xFF\xFE\x3D\xD8\x00\xDE\r\0\n\0x\0\r\0\n\0"s},
        {"UTF-16 BE, half a pair", "\xFE\xFF\xD8\x3D\0\n"s, Encoding::Utf16Be, LineEnd::Lf, u"\xD83D\r",
         "\xFE\xFF\xD8\x3D\0\n\0x\0\n"s},
        {"a carriage return alone", "a\rb\r", Encoding::Utf8, LineEnd::Cr, u"a\rb\r", "a\rb\rx\r"},
    };
    for (const Case& row : cases) {
        const DecodedText decoded = Decode(row.bytes);
        EXPECT_EQ(decoded.encoding, row.encoding) << row.name;
        EXPECT_EQ(decoded.lineEnd, row.lineEnd) << row.name;
        EXPECT_EQ(decoded.text, row.text) << row.name;
        EXPECT_TRUE(decoded.isExact) << row.name;
        EXPECT_EQ(Encode(decoded.text, decoded.encoding, decoded.lineEnd), row.bytes) << row.name;
        EXPECT_EQ(Encode(decoded.text + u"x\r\n", decoded.encoding, decoded.lineEnd), row.edited) << row.name;
    }
}

TEST(TextCodec, KeepsBytesThatAreNoUtf8)
{
    for (const std::string& bytes : {"caf\xE9\r\n"s,
                                     "\xFF\xFE"
                                     "a"s,
                                     "\xC3"s, "\x81\x8D\xFF\n"s}) {
        const DecodedText decoded = Decode(bytes);
        EXPECT_TRUE(decoded.encoding == Encoding::CodePage || decoded.encoding == Encoding::Bytes);
        EXPECT_EQ(Encode(decoded.text, decoded.encoding, decoded.lineEnd), bytes);
    }
    EXPECT_FALSE(Encode(u"\U0001F600", Encoding::CodePage, LineEnd::Lf));
    EXPECT_FALSE(Encode(u"\u4E2D", Encoding::Bytes, LineEnd::Lf));
    EXPECT_FALSE(Decode("a\r\nb\n").isExact);
}

TEST(FileStore, ReplacesAFileOrLeavesItAsItWas)
{
    const std::string path = "file_store_test.txt";
    ASSERT_TRUE(ReplaceFile(path, "first"));
    ASSERT_TRUE(ReplaceFile(path, "second"));
    EXPECT_EQ(ReadWholeFile(path), "second");
    EXPECT_FALSE(FileExists(path + ".0.tmp"));
    EXPECT_FALSE(ReplaceFile("no_such_folder/file.txt", "lost"));
    EXPECT_FALSE(ReadWholeFile("no_such_folder/file.txt"));
    std::remove(path.c_str());
}

}  // namespace
}  // namespace writer
