// Parsing, navigation and values of documents in memory.

#include <qvui/skin/xml/xml_document.h>

#include "skin/skin_test.h"

namespace {

using DUI::CXmlDocument;

// The elements as "a(b c(d))".
std::string Tree(CXmlDocument& xml)
{
    std::string text(xml.GetTagName());
    std::string children;
    while (xml.FindChildElement()) {
        xml.IntoElement();
        children.append(children.empty() ? "" : " ").append(Tree(xml));
        xml.OutOfElement();
    }
    return children.empty() ? text : text.append("(").append(children).append(")");
}

std::string Forest(CXmlDocument& xml)
{
    std::string text;
    while (xml.FindElement())
        text.append(text.empty() ? "" : " ").append(Tree(xml));
    return text;
}

CXmlDocument Parsed(const char* text)
{
    CXmlDocument xml;
    xml.SetDocument(text);
    return xml;
}

std::string Repeat(const char* text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

}  // namespace

TEST(XmlDocument, ParsesWhatItCanAndNamesEveryProblem)
{
    const Table<const char*, const char*, const char*, std::vector<std::string>> cases{
        {"one element", "<a/>", "a", {}},
        {"nested", "<a><b/><c><d></d></c></a>", "a(b c(d))", {}},
        {"blanks everywhere", "\r\n <a\t>\n<b />\t</a >\r\n", "a(b)", {}},
        {"names of many characters", "<a-b.c:d_1/>", "a-b.c:d_1", {}},
        {"all but elements", "<?xml version=\"1.0\"?><!-- <x> --><a><![CDATA[<y>]]></a><!---->", "a", {}},
        {"instruction inside", "<a><?go <b/> ?></a>", "a", {}},
        {"document type", "<!DOCTYPE a SYSTEM \"a>b\"><a/>", "a", {}},
        {"subset", "<!DOCTYPE a [<!ELEMENT a (#PCDATA)> <!-- don't > --> <!ENTITY e \"]>\">]><a/>", "a", {}},
        {"brackets in quotations", "<a b=\"<c>\" d='\"/>'><e/></a>", "a(e)", {}},
        {"text that looks like nothing", "<a>1 > 2 & \"</a>", "a", {}},
        {"empty", "", "", {"no_root_element"}},
        {"text alone", "hello", "", {"no_root_element"}},
        {"comment alone", "<!-- a -->", "", {"no_root_element"}},
        {"two roots", "<a/><b/>", "a b", {"root_has_sibling"}},
        {"no name", "<a>< b/></a>", "a", {"first_tag_syntax"}},
        {"two brackets", "<<a/>", "a", {"first_tag_syntax"}},
        {"start tag cut by the end", "<a><b c=\"d\"", "a", {"unterminated_tag_syntax", "unended_start_tag"}},
        {"start tag cut by a tag", "<a><b <c/></a>", "a(c)", {"unterminated_tag_syntax"}},
        {"open quotation",
         "<a b=\"c></a>",
         "",
         {"unterminated_tag_syntax", "lone_end_tag", "no_root_element"}},
        {"end tag cut", "<a></a", "a", {"unterminated_tag_syntax", "unended_start_tag"}},
        {"end tag with more", "<a></a b></a>", "a", {"unterminated_tag_syntax"}},
        {"instruction cut", "<a/><? b >", "a", {"unterminated_tag_syntax"}},
        {"comment cut", "<a/><!-- b ->", "a", {"comment_tag_syntax"}},
        {"comment too short", "<a/><!-->", "a", {"comment_tag_syntax"}},
        {"section cut", "<a><![CDATA[ ]></a>", "a", {"cdata_section_syntax", "unended_start_tag"}},
        {"document type cut", "<!DOCTYPE a [ ><a/>", "", {"doctype_tag_syntax", "no_root_element"}},
        {"unknown exclamation", "<a><!x></a>", "a", {"exclamation_tag_syntax"}},
        {"lone end tag", "<a></b></a>", "a", {"lone_end_tag"}},
        {"lone end tag at the top", "</b><a/>", "a", {"lone_end_tag"}},
        {"nameless end tag", "<a></></a>", "a", {"lone_end_tag"}},
        {"element left open", "<a><b><c/></a>", "a(b(c))", {"unended_start_tag"}},
        {"two left open", "<a><b><c></a>", "a(b(c))", {"unended_start_tag", "unended_start_tag"}},
        {"crossed", "<a><b></a></b>", "a(b)", {"unended_start_tag", "lone_end_tag"}},
        {"names that begin alike", "<ab><a></ab></a>", "ab(a)", {"unended_start_tag", "lone_end_tag"}},
        {"case counts", "<a></A>", "a", {"lone_end_tag", "unended_start_tag"}},
    };
    for (const auto& [name, text, tree, words] : cases) {
        CXmlDocument xml;
        EXPECT_EQ(xml.SetDocument(text), words.empty()) << name;
        EXPECT_EQ(xml.IsWellFormed(), words.empty()) << name;
        EXPECT_EQ(LogWords(xml.GetResult()), words) << name;
        EXPECT_EQ(Forest(xml), tree) << name;
    }
}

TEST(XmlDocument, LogSaysWhereAndStaysShort)
{
    CXmlDocument xml;
    xml.SetDocument("<a></b></a>");
    EXPECT_STREQ(xml.GetResult(), "<lone_end_tag tagname=\"b\" offset=\"3\"/>\r\n");
    xml.SetDocument(std::string("<a>").append(Repeat("</b>", 1000)).append("</a>").c_str());
    EXPECT_GT(xml.GetResult().GetLength(), 999);
    EXPECT_LT(xml.GetResult().GetLength(), 1100);
    xml.SetDocument(std::string("<").append(5000, 'n').append(">").c_str());
    EXPECT_LT(xml.GetResult().GetLength(), 1100);
}

TEST(XmlDocument, ReplacesTheDocumentBefore)
{
    CXmlDocument xml = Parsed("<a b=\"1\"></c></a>");
    xml.FindElement();
    EXPECT_TRUE(xml.SetDocument("<x b=\"2\"><y/></x>"));
    EXPECT_STREQ(xml.GetTagName(), "") << "the cursor is at the document level";
    EXPECT_TRUE(xml.FindElement("x"));
    EXPECT_STREQ(xml.GetAttribute("b"), "2");
    EXPECT_FALSE(xml.SetDocument(nullptr));
    EXPECT_STREQ(xml.GetResult(), "<no_root_element/>\r\n");
    EXPECT_TRUE(xml.GetDocument().IsEmpty());
    EXPECT_FALSE(xml.FindElement() || xml.IntoElement() || xml.OutOfElement() || xml.FindChildElement());
    EXPECT_STREQ(xml.GetAttribute("b"), "");
    EXPECT_STREQ(xml.GetSubDocument(), "");
}

TEST(XmlDocument, RefusesTextWhileItReadsOrWritesAFile)
{
    for (const int flag : {CXmlDocument::kReadFile, CXmlDocument::kWriteFile}) {
        CXmlDocument xml = Parsed("<a></b></a>");
        xml.FindElement();
        xml.SetFlags(flag);
        EXPECT_FALSE(xml.SetDocument("<x/>") || xml.SetDocument(nullptr));
        EXPECT_STREQ(xml.GetDocument(), "<a></b></a>");
        EXPECT_STREQ(xml.GetTagName(), "a");
        EXPECT_STREQ(xml.GetSubDocument(), "");
        EXPECT_EQ(xml.IsWellFormed(), flag == CXmlDocument::kWriteFile) << "what is written is by definition";
    }
}

TEST(XmlNavigation, SearchesGoOnBehindWhatWasFound)
{
    CXmlDocument xml = Parsed("<r><a n=\"1\"/><b n=\"2\"/><a n=\"3\"/></r>");
    EXPECT_TRUE(xml.FindChildElement("a")) << "the root is found on the way";
    EXPECT_STREQ(xml.GetChildAttribute("n"), "1");
    EXPECT_TRUE(xml.FindChildElement("a"));
    EXPECT_STREQ(xml.GetChildAttribute("n"), "3");
    EXPECT_FALSE(xml.FindChildElement("b")) << "it stands before the child found last";
    EXPECT_FALSE(xml.FindChildElement("a"));
    EXPECT_STREQ(xml.GetChildAttribute("n"), "3") << "a failed search leaves the cursor";
    xml.ResetPosition();
    EXPECT_TRUE(xml.FindChildElement());
    EXPECT_STREQ(xml.GetChildAttribute("n"), "1");
    EXPECT_TRUE(xml.FindChildElement());
    EXPECT_STREQ(xml.GetChildTagName(), "b");
}

TEST(XmlNavigation, GoesIntoElementsAndOut)
{
    CXmlDocument xml = Parsed("<r><a><x/><y/></a><b><z/></b></r>");
    EXPECT_FALSE(xml.IntoElement()) << "no current element";
    EXPECT_FALSE(xml.OutOfElement()) << "no parent";
    ASSERT_TRUE(xml.FindElement());
    ASSERT_TRUE(xml.FindChildElement("a"));
    EXPECT_TRUE(xml.IntoElement());
    EXPECT_STREQ(xml.GetTagName(), "a");
    EXPECT_STREQ(xml.GetChildTagName(), "");
    EXPECT_TRUE(xml.FindChildElement("y"));
    EXPECT_TRUE(xml.FindElement("b")) << "the next sibling";
    EXPECT_STREQ(xml.GetChildTagName(), "") << "the child position was a's";
    EXPECT_TRUE(xml.FindChildElement("z"));
    EXPECT_TRUE(xml.OutOfElement());
    EXPECT_STREQ(xml.GetTagName(), "r");
    EXPECT_STREQ(xml.GetChildTagName(), "b");
    EXPECT_FALSE(xml.FindChildElement()) << "b is the last";
    EXPECT_FALSE(xml.OutOfElement());
    EXPECT_TRUE(xml.IntoElement());
    EXPECT_TRUE(xml.IntoElement()) << "into an element without a current child";
    EXPECT_STREQ(xml.GetTagName(), "");
    EXPECT_TRUE(xml.FindElement("z")) << "the first element under the parent";
}

TEST(XmlNavigation, NamesMatchWhole)
{
    // With and without regard to letter case.
    const Table<const char*, const char*, bool, bool> cases{
        {"image", "image", true, true},     {"images", "image", false, false},
        {"image", "im", false, false},      {"Image", "image", false, true},
        {"image", "", false, false},        {"image", "image/a", true, true},
        {"image", "image[1]", true, true},  {"image", "image=x", true, true},
        {"image", "image x", true, true},   {"image", "image]", true, true},
        {"image", "image.x", false, false}, {"a[1]", "a[1]", true, true},
        {"IMAGE", "image/A", false, true}};
    for (const auto& [tag, name, matches, matchesWithoutCase] : cases) {
        CXmlDocument xml = Parsed(std::string("<r><").append(tag).append("/></r>").c_str());
        EXPECT_EQ(xml.FindChildElement(name), matches) << tag << " " << name;
        xml.ResetPosition();
        xml.SetFlags(CXmlDocument::kIgnoreCase);
        EXPECT_EQ(xml.FindChildElement(name), matchesWithoutCase) << tag << " " << name;
    }
    // A tag with a zero byte, and a name that ends with its memory.
    for (const int flags : {0, int{CXmlDocument::kIgnoreCase}}) {
        CXmlDocument xml;
        xml.SetFlags(flags);
        EXPECT_TRUE(xml.SetDocument(CString("<r><image\0of a longer name/></r>", 32)));
        const std::vector<char> image{'i', 'm', 'a', 'g', 'e', '\0'};
        EXPECT_FALSE(xml.FindChildElement(image.data())) << flags;
    }
}

TEST(XmlValues, AttributesInEveryNotation)
{
    const Table<const char*, const char*, std::vector<std::pair<std::string, std::string>>> cases{
        {"none", "<a>", {}},
        {"double quotes", "<a b=\"1\">", {{"b", "1"}}},
        {"single quotes", "<a b='1'>", {{"b", "1"}}},
        {"the other quote inside", "<a b='\"' c=\"'\">", {{"b", "\""}, {"c", "'"}}},
        {"no quotes", "<a b=1 c=#FF00FF00>", {{"b", "1"}, {"c", "#FF00FF00"}}},
        {"no quotes, empty element", "<a b=1/>", {{"b", "1"}}},
        {"no value", "<a b c=\"1\">", {{"b", ""}, {"c", "1"}}},
        {"nothing behind the sign", "<a b=>", {{"b", ""}}},
        {"empty", "<a b=\"\" c=''>", {{"b", ""}, {"c", ""}}},
        {"twice", "<a b=\"1\" b=\"2\">", {{"b", "1"}, {"b", "1"}}},
        {"names that begin alike", "<a bb=\"1\" b=\"2\">", {{"bb", "1"}, {"b", "2"}}},
        {"blanks around the sign", "<a b = \"1\"\r\n\tc\n=\n'2' >", {{"b", "1"}, {"c", "2"}}},
        {"no blank between", "<a b=\"1\"c=\"2\">", {{"b", "1"}, {"c", "2"}}},
        {"a name inside a value", "<a b=\"c='x'\" c=\"2\">", {{"b", "c='x'"}, {"c", "2"}}},
        {"brackets inside", "<a b=\"<c/>\">", {{"b", "<c/>"}}},
        {"a stray quotation", "<a \"x\" b=\"1\">", {{"b", "1"}}},
        {"a stray sign", "<a = b=\"1\">", {{"b", "1"}}},
        {"escaped", "<a b=\"&lt;&#65;\">", {{"b", "<A"}}},
        {"line ends stay", "<a b=\"1\r\n2\">", {{"b", "1\r\n2"}}},
    };
    for (const auto& [name, start, attributes] : cases) {
        const std::string tag(start);
        CXmlDocument xml = Parsed((tag.ends_with("/>") ? tag : tag + "</a>").c_str());
        ASSERT_TRUE(xml.FindElement()) << name;
        std::vector<std::pair<std::string, std::string>> found;
        for (int i = 0; !xml.GetAttributeName(i).IsEmpty(); ++i)
            found.emplace_back(xml.GetAttributeName(i), xml.GetAttribute(xml.GetAttributeName(i)));
        EXPECT_EQ(found, attributes) << name;
    }
}

TEST(XmlValues, AttributesOfTheElementAskedFor)
{
    CXmlDocument xml = Parsed("<a b=\"1\"><c b=\"2\" B=\"3\"/><d/></a>");
    EXPECT_STREQ(xml.GetAttribute("b"), "") << "no current element";
    EXPECT_STREQ(xml.GetAttributeName(0), "");
    xml.FindElement();
    EXPECT_STREQ(xml.GetChildAttribute("b"), "") << "no child";
    xml.FindChildElement();
    EXPECT_STREQ(xml.GetAttribute("b"), "1");
    EXPECT_STREQ(xml.GetChildAttribute("b"), "2");
    EXPECT_STREQ(xml.GetChildAttribute("B"), "3");
    EXPECT_STREQ(xml.GetAttribute("b"), "1") << "asked in turn";
    for (const char* name : {"c", "", static_cast<LPCSTR>(nullptr)})
        EXPECT_STREQ(xml.GetAttribute(name), "");
    for (const int number : {1, -1})
        EXPECT_STREQ(xml.GetAttributeName(number), "");
    xml.FindChildElement("d");
    EXPECT_STREQ(xml.GetChildAttribute("b"), "");
    xml.ResetPosition();
    xml.SetFlags(CXmlDocument::kIgnoreCase);
    xml.FindChildElement("C");
    EXPECT_STREQ(xml.GetChildAttribute("B"), "2") << "the first of that name";
}

TEST(XmlValues, DataOfTheChild)
{
    const Table<const char*, const char*, const char*> cases{
        {"text", "<a>hello</a>", "hello"},
        {"blanks stay", "<a> hello\n</a>", " hello\n"},
        {"escaped", "<a>1 &lt; 2 &amp;&amp; &quot;x&quot;</a>", "1 < 2 && \"x\""},
        {"a section is unchanged", "<a><![CDATA[1 &lt; <b>]]></a>", "1 &lt; <b>"},
        {"blanks around a section", "<a>\n  <![CDATA[x]]>\n</a>", "x"},
        {"an empty section", "<a><![CDATA[]]></a>", ""},
        {"a section and more", "<a><![CDATA[x]]>y</a>", "<![CDATA[x]]>y"},
        {"children", "<a>x<b/>y</a>", "x<b/>y"},
        {"empty element", "<a/>", ""},
        {"nothing inside", "<a></a>", ""},
        {"blank end tag", "<a>x</a \n>", "x"},
        {"a bracket in an attribute", "<a b=\">\">x</a>", "x"},
    };
    for (const auto& [name, element, data] : cases) {
        CXmlDocument xml = Parsed(std::string("<r>").append(element).append("</r>").c_str());
        EXPECT_STREQ(xml.GetChildData(), "") << "no child yet";
        ASSERT_TRUE(xml.FindChildElement("a"));
        EXPECT_STREQ(xml.GetChildData(), data) << name;
    }
    CXmlDocument open = Parsed("<r><a>text<b>more</r>");
    open.FindChildElement();
    EXPECT_STREQ(open.GetChildData(), "text<b>more") << "up to where the element was closed for it";
}

TEST(XmlValues, SubDocumentsEndAtTheNextTag)
{
    const Table<const char*, const char*, const char*> cases{
        {"whole element", "<r><a b=\"1\"><c/></a></r>", "<a b=\"1\"><c/></a>"},
        {"blanks before a tag", "<r><a/>\r\n\t <b/></r>", "<a/>\r\n\t "},
        {"blanks before the end tag", "<r><a/>\n</r>", "<a/>\n"},
        {"blanks before text", "<r><a/> text</r>", "<a/>"},
        {"entities stay", "<r><a>&lt;</a></r>", "<a>&lt;</a>"},
    };
    for (const auto& [name, text, sub] : cases) {
        CXmlDocument xml = Parsed(text);
        xml.FindChildElement("a");
        xml.IntoElement();
        EXPECT_STREQ(xml.GetSubDocument(), sub) << name;
        CXmlDocument again;
        EXPECT_TRUE(again.SetDocument(xml.GetSubDocument())) << name;
    }
    CXmlDocument last = Parsed("<r/> \n");
    last.FindElement();
    EXPECT_STREQ(last.GetSubDocument(), "<r/>") << "blanks at the end of the text";
}

TEST(XmlValues, OffsetsPointIntoTheText)
{
    CXmlDocument xml = Parsed("<r>\n <a b=\"x\"/></r>");
    EXPECT_EQ(xml.GetElementOffset(), -1);
    EXPECT_EQ(xml.GetChildOffset(), -1);
    xml.FindChildElement("a");
    EXPECT_EQ(xml.GetElementOffset(), 0);
    EXPECT_EQ(xml.GetChildOffset(), 5);
    EXPECT_EQ(xml.GetAttributeOffset("b"), -1);
    xml.IntoElement();
    EXPECT_EQ(xml.GetAttributeOffset("b"), 11);
    EXPECT_EQ(xml.GetAttributeOffset("c"), -1);
}

TEST(XmlDocument, TakesDepthAndHostilityInLinearTime)
{
    constexpr int kDepth = 100'000;
    CXmlDocument xml;
    EXPECT_TRUE(xml.SetDocument((Repeat("<a>", kDepth) + Repeat("</a>", kDepth)).c_str()));
    int depth = 0;
    for (xml.FindElement(); xml.FindChildElement(); xml.IntoElement())
        ++depth;
    EXPECT_EQ(depth, kDepth - 1);

    // Each of these takes hours when a step of the parser looks through what was read before.
    const std::vector<std::string> hostile{
        Repeat("<a>", kDepth) + Repeat("</b>", kDepth),
        Repeat("<a>", kDepth) + Repeat("</b></a>", kDepth),
        Repeat("<a><b></a>", kDepth),
        Repeat("<a '", kDepth) + Repeat("<a \"", kDepth),
        Repeat("<!", kDepth) + Repeat("</", kDepth) + Repeat("<", kDepth),
        Repeat("<!--", kDepth),
        Repeat("<![CDATA[", kDepth),
        Repeat("<?", kDepth),
        Repeat("<!DOCTYPE[", kDepth),
        std::string("<a ").append(Repeat("b=\"1\" ", kDepth)).append("/><a/>"),
        std::string("<a ").append(Repeat("= ' ", kDepth)),
    };
    for (const std::string& text : hostile) {
        EXPECT_FALSE(xml.SetDocument(text.c_str())) << text.substr(0, 12);
        while (xml.FindElement()) {
            xml.GetAttribute("z");
            xml.GetAttributeName(kDepth);
        }
    }
}
