#include "skin/xml/tables.h"

#include <algorithm>

namespace DUI {
namespace {

struct Encoding {
    std::string_view name;
    int codePage;
};

// Registered character-set names and common aliases, in lower case and sorted, with their code pages.
// clang-format off
constexpr Encoding kEncodings[] = {
    {"437", 437}, {"850", 850}, {"852", 852}, {"855", 855}, {"857", 857}, {"858", 858}, {"860", 860},
    {"861", 861}, {"862", 862}, {"863", 863}, {"864", 864}, {"865", 865}, {"866", 866}, {"869", 869},
    {"8859-1", 28591}, {"8859-13", 28603}, {"8859-15", 28605}, {"8859-2", 28592}, {"8859-3", 28593},
    {"8859-4", 28594}, {"8859-5", 28595}, {"8859-6", 28596}, {"8859-7", 28597}, {"8859-8", 28598},
    {"8859-9", 28599}, {"_iso-2022-jp", 50220}, {"_iso-2022-jp$sio", 50221}, {"ansi_x3.4-1968", 20127},
    {"ansi_x3.4-1986", 20127}, {"arabic", 28596}, {"ascii", 20127}, {"asmo-708", 28596}, {"big-5", 950},
    {"big-five", 950}, {"big5", 950}, {"big5-hkscs", 950}, {"ccsid00858", 858}, {"ccsid01140", 1140},
    {"ccsid01141", 1141}, {"ccsid01142", 1142}, {"ccsid01143", 1143}, {"ccsid01144", 1144},
    {"ccsid01145", 1145}, {"ccsid01146", 1146}, {"ccsid01147", 1147}, {"ccsid01148", 1148},
    {"ccsid01149", 1149}, {"chinese", 936}, {"cn-big5", 950}, {"cn-gb", 936}, {"cp-gr", 869},
    {"cp-is", 861}, {"cp00858", 858}, {"cp01140", 1140}, {"cp01141", 1141}, {"cp01142", 1142},
    {"cp01143", 1143}, {"cp01144", 1144}, {"cp01145", 1145}, {"cp01146", 1146}, {"cp01147", 1147},
    {"cp01148", 1148}, {"cp01149", 1149}, {"cp037", 37}, {"cp1026", 1026}, {"cp1047", 1047},
    {"cp1250", 1250}, {"cp1251", 1251}, {"cp1252", 1252}, {"cp1253", 1253}, {"cp1254", 1254},
    {"cp1255", 1255}, {"cp1256", 1256}, {"cp1257", 1257}, {"cp1258", 1258}, {"cp1361", 1361},
    {"cp273", 20273}, {"cp277", 20277}, {"cp278", 20278}, {"cp280", 20280}, {"cp284", 20284},
    {"cp285", 20285}, {"cp290", 20290}, {"cp297", 20297}, {"cp367", 20127}, {"cp420", 20420},
    {"cp423", 20423}, {"cp424", 20424}, {"cp437", 437}, {"cp500", 500}, {"cp737", 737}, {"cp775", 775},
    {"cp819", 28591}, {"cp850", 850}, {"cp852", 852}, {"cp855", 855}, {"cp857", 857}, {"cp858", 858},
    {"cp860", 860}, {"cp861", 861}, {"cp862", 862}, {"cp863", 863}, {"cp864", 864}, {"cp865", 865},
    {"cp866", 866}, {"cp869", 869}, {"cp870", 870}, {"cp871", 20871}, {"cp874", 874}, {"cp880", 20880},
    {"cp905", 20905}, {"cp932", 932}, {"cp936", 936}, {"cp949", 949}, {"cp950", 950}, {"csascii", 20127},
    {"csbig5", 950}, {"csbig5hkscs", 950}, {"cseuckr", 51949}, {"cseucpkdfmtjapanese", 51932},
    {"csgb18030", 54936}, {"csgb2312", 936}, {"csgb231280", 936}, {"csgbk", 936}, {"csibm037", 37},
    {"csibm1026", 1026}, {"csibm1047", 1047}, {"csibm273", 20273}, {"csibm277", 20277}, {"csibm278", 20278},
    {"csibm280", 20280}, {"csibm284", 20284}, {"csibm285", 20285}, {"csibm290", 20290}, {"csibm297", 20297},
    {"csibm420", 20420}, {"csibm423", 20423}, {"csibm424", 20424}, {"csibm500", 500}, {"csibm855", 855},
    {"csibm857", 857}, {"csibm860", 860}, {"csibm861", 861}, {"csibm863", 863}, {"csibm864", 864},
    {"csibm865", 865}, {"csibm866", 866}, {"csibm869", 869}, {"csibm870", 870}, {"csibm871", 20871},
    {"csibm880", 20880}, {"csibm905", 20905}, {"csiso2022jp", 50221}, {"csiso2022kr", 50225},
    {"csiso58gb231280", 936}, {"csiso88598i", 38598}, {"csisolatin1", 28591}, {"csisolatin2", 28592},
    {"csisolatin3", 28593}, {"csisolatin4", 28594}, {"csisolatin5", 28599}, {"csisolatin9", 28605},
    {"csisolatinarabic", 28596}, {"csisolatincyrillic", 28595}, {"csisolatingreek", 28597},
    {"csisolatinhebrew", 28598}, {"cskoi8r", 20866}, {"cskoi8u", 21866}, {"csksc56011987", 949},
    {"csmacintosh", 10000}, {"cspc775baltic", 775}, {"cspc850multilingual", 850},
    {"cspc862latinhebrew", 862}, {"cspc8codepage437", 437}, {"cspcp852", 852}, {"csshiftjis", 932},
    {"cstis620", 874}, {"csunicode", 1200}, {"csunicode11utf7", 65000}, {"csutf16", 1200},
    {"csutf16be", 1201}, {"csutf16le", 1200}, {"csutf7", 65000}, {"csutf8", 65001}, {"cswindows1250", 1250},
    {"cswindows1251", 1251}, {"cswindows1252", 1252}, {"cswindows1253", 1253}, {"cswindows1254", 1254},
    {"cswindows1255", 1255}, {"cswindows1256", 1256}, {"cswindows1257", 1257}, {"cswindows1258", 1258},
    {"cswindows31j", 932}, {"cyrillic", 28595}, {"din_66003", 20106}, {"dos-720", 720}, {"dos-862", 862},
    {"dos-874", 874}, {"ebcdic-cp-1026", 1026}, {"ebcdic-cp-1047", 1047}, {"ebcdic-cp-273", 20273},
    {"ebcdic-cp-277", 20277}, {"ebcdic-cp-278", 20278}, {"ebcdic-cp-280", 20280}, {"ebcdic-cp-284", 20284},
    {"ebcdic-cp-285", 20285}, {"ebcdic-cp-290", 20290}, {"ebcdic-cp-297", 20297}, {"ebcdic-cp-37", 37},
    {"ebcdic-cp-420", 20420}, {"ebcdic-cp-423", 20423}, {"ebcdic-cp-424", 20424}, {"ebcdic-cp-500", 500},
    {"ebcdic-cp-870", 870}, {"ebcdic-cp-871", 20871}, {"ebcdic-cp-880", 20880}, {"ebcdic-cp-905", 20905},
    {"ebcdic-cp-ar1", 20420}, {"ebcdic-cp-be", 500}, {"ebcdic-cp-ca", 37}, {"ebcdic-cp-ch", 500},
    {"ebcdic-cp-dk", 20277}, {"ebcdic-cp-es", 20284}, {"ebcdic-cp-fi", 20278}, {"ebcdic-cp-fr", 20297},
    {"ebcdic-cp-gb", 20285}, {"ebcdic-cp-gr", 20423}, {"ebcdic-cp-he", 20424}, {"ebcdic-cp-is", 20871},
    {"ebcdic-cp-it", 20280}, {"ebcdic-cp-nl", 37}, {"ebcdic-cp-no", 20277}, {"ebcdic-cp-roece", 870},
    {"ebcdic-cp-se", 20278}, {"ebcdic-cp-tr", 20905}, {"ebcdic-cp-us", 37}, {"ebcdic-cp-wt", 37},
    {"ebcdic-cp-yu", 870}, {"ebcdic-cyrillic", 20880}, {"ebcdic-jp-kana", 20290}, {"ecma-114", 28596},
    {"ecma-118", 28597}, {"elot_928", 28597}, {"euc-cn", 936}, {"euc-jp", 51932}, {"euc-kr", 51949},
    {"eucjp", 51932}, {"euckr", 51949}, {"extended_unix_code_packed_format_for_japanese", 51932},
    {"gb18030", 54936}, {"gb2312", 936}, {"gb2312-80", 936}, {"gb_2312-80", 936}, {"gbk", 936},
    {"greek", 28597}, {"greek8", 28597}, {"hebrew", 28598}, {"hz", 52936}, {"hz-gb-2312", 52936},
    {"ibm00858", 858}, {"ibm01140", 1140}, {"ibm01141", 1141}, {"ibm01142", 1142}, {"ibm01143", 1143},
    {"ibm01144", 1144}, {"ibm01145", 1145}, {"ibm01146", 1146}, {"ibm01147", 1147}, {"ibm01148", 1148},
    {"ibm01149", 1149}, {"ibm037", 37}, {"ibm1026", 1026}, {"ibm1047", 1047}, {"ibm273", 20273},
    {"ibm277", 20277}, {"ibm278", 20278}, {"ibm280", 20280}, {"ibm284", 20284}, {"ibm285", 20285},
    {"ibm290", 20290}, {"ibm297", 20297}, {"ibm367", 20127}, {"ibm420", 20420}, {"ibm423", 20423},
    {"ibm424", 20424}, {"ibm437", 437}, {"ibm500", 500}, {"ibm737", 737}, {"ibm775", 775},
    {"ibm819", 28591}, {"ibm850", 850}, {"ibm852", 852}, {"ibm855", 855}, {"ibm857", 857}, {"ibm858", 858},
    {"ibm860", 860}, {"ibm861", 861}, {"ibm862", 862}, {"ibm863", 863}, {"ibm864", 864}, {"ibm865", 865},
    {"ibm866", 866}, {"ibm869", 869}, {"ibm870", 870}, {"ibm871", 20871}, {"ibm880", 20880},
    {"ibm905", 20905}, {"iso-10646-ucs-2", 1200}, {"iso-2022-jp", 50220}, {"iso-2022-jpeuc", 51932},
    {"iso-2022-kr", 50225}, {"iso-2022-kr-7", 50225}, {"iso-2022-kr-7bit", 50225}, {"iso-646-us", 20127},
    {"iso-8859-1", 28591}, {"iso-8859-11", 874}, {"iso-8859-13", 28603}, {"iso-8859-15", 28605},
    {"iso-8859-2", 28592}, {"iso-8859-3", 28593}, {"iso-8859-4", 28594}, {"iso-8859-5", 28595},
    {"iso-8859-6", 28596}, {"iso-8859-7", 28597}, {"iso-8859-8", 28598}, {"iso-8859-8 visual", 28598},
    {"iso-8859-8-i", 38598}, {"iso-8859-9", 28599}, {"iso-ir-100", 28591}, {"iso-ir-101", 28592},
    {"iso-ir-103", 20261}, {"iso-ir-109", 28593}, {"iso-ir-110", 28594}, {"iso-ir-126", 28597},
    {"iso-ir-127", 28596}, {"iso-ir-138", 28598}, {"iso-ir-144", 28595}, {"iso-ir-148", 28599},
    {"iso-ir-149", 949}, {"iso-ir-156", 20269}, {"iso-ir-179", 28603}, {"iso-ir-203", 28605},
    {"iso-ir-58", 936}, {"iso-ir-6", 20127}, {"iso646-us", 20127}, {"iso8859-1", 28591},
    {"iso8859-13", 28603}, {"iso8859-15", 28605}, {"iso8859-2", 28592}, {"iso8859-3", 28593},
    {"iso8859-4", 28594}, {"iso8859-5", 28595}, {"iso8859-6", 28596}, {"iso8859-7", 28597},
    {"iso8859-8", 28598}, {"iso8859-9", 28599}, {"iso8859_1", 28591}, {"iso_646.irv:1991", 20127},
    {"iso_6937", 20269}, {"iso_8859-1", 28591}, {"iso_8859-13", 28603}, {"iso_8859-15", 28605},
    {"iso_8859-1:1987", 28591}, {"iso_8859-2", 28592}, {"iso_8859-2:1987", 28592}, {"iso_8859-3", 28593},
    {"iso_8859-3:1988", 28593}, {"iso_8859-4", 28594}, {"iso_8859-4:1988", 28594}, {"iso_8859-5", 28595},
    {"iso_8859-5:1988", 28595}, {"iso_8859-6", 28596}, {"iso_8859-6:1987", 28596}, {"iso_8859-7", 28597},
    {"iso_8859-7:1987", 28597}, {"iso_8859-8", 28598}, {"iso_8859-8-i", 38598}, {"iso_8859-8:1988", 28598},
    {"iso_8859-9", 28599}, {"iso_8859-9:1989", 28599}, {"jis_c6226-1983", 20932}, {"johab", 1361},
    {"koi", 20866}, {"koi8", 20866}, {"koi8-r", 20866}, {"koi8-ru", 20866}, {"koi8-u", 21866},
    {"koi8r", 20866}, {"korean", 949}, {"ks_c_5601", 949}, {"ks_c_5601-1987", 949}, {"ks_c_5601-1989", 949},
    {"ks_c_5601_1987", 949}, {"ksc5601", 949}, {"ksc_5601", 949}, {"l1", 28591}, {"l2", 28592},
    {"l3", 28593}, {"l4", 28594}, {"l5", 28599}, {"l9", 28605}, {"latin-9", 28605}, {"latin1", 28591},
    {"latin2", 28592}, {"latin3", 28593}, {"latin4", 28594}, {"latin5", 28599}, {"latin9", 28605},
    {"logical", 38598}, {"mac", 10000}, {"macintosh", 10000}, {"ms-1250", 1250}, {"ms-1251", 1251},
    {"ms-1252", 1252}, {"ms-1253", 1253}, {"ms-1254", 1254}, {"ms-1255", 1255}, {"ms-1256", 1256},
    {"ms-1257", 1257}, {"ms-1258", 1258}, {"ms932", 932}, {"ms936", 936}, {"ms_kanji", 932},
    {"ns_4551-1", 20108}, {"pc-multilingual-850+euro", 858}, {"sen_850200_b", 20107}, {"shift-jis", 932},
    {"shift_jis", 932}, {"sjis", 932}, {"t.61", 20261}, {"t.61-8bit", 20261}, {"tis-620", 874},
    {"ucs-2", 1200}, {"ucs-2le", 1200}, {"uhc", 949}, {"unicode", 1200}, {"unicode-1-1-utf-7", 65000},
    {"unicode-1-1-utf-8", 65001}, {"unicode-2-0-utf-7", 65000}, {"unicode-2-0-utf-8", 65001},
    {"unicodefeff", 1201}, {"unicodefffe", 1201}, {"us", 20127}, {"us-ascii", 20127}, {"utf-16", 1200},
    {"utf-16be", 1201}, {"utf-16le", 1200}, {"utf-7", 65000}, {"utf-8", 65001}, {"utf16", 1200},
    {"utf8", 65001}, {"visual", 28598}, {"windows-1250", 1250}, {"windows-1251", 1251},
    {"windows-1252", 1252}, {"windows-1253", 1253}, {"windows-1254", 1254}, {"windows-1255", 1255},
    {"windows-1256", 1256}, {"windows-1257", 1257}, {"windows-1258", 1258}, {"windows-31j", 932},
    {"windows-874", 874}, {"windows-936", 936}, {"windows-949", 949}, {"x-ansi", 1252},
    {"x-chinese-cns", 20000}, {"x-chinese-eten", 20002}, {"x-cp1250", 1250}, {"x-cp1251", 1251},
    {"x-cp1252", 1252}, {"x-cp1253", 1253}, {"x-cp1254", 1254}, {"x-cp1255", 1255}, {"x-cp1256", 1256},
    {"x-cp1257", 1257}, {"x-cp1258", 1258}, {"x-cp20261", 20261}, {"x-cp20269", 20269}, {"x-euc", 51932},
    {"x-euc-jp", 51932}, {"x-europa", 29001}, {"x-gbk", 936}, {"x-ia5", 20105}, {"x-ia5-german", 20106},
    {"x-ia5-norwegian", 20108}, {"x-ia5-swedish", 20107}, {"x-iscii-as", 57006}, {"x-iscii-be", 57003},
    {"x-iscii-de", 57002}, {"x-iscii-gu", 57010}, {"x-iscii-ka", 57008}, {"x-iscii-ma", 57009},
    {"x-iscii-or", 57007}, {"x-iscii-pa", 57011}, {"x-iscii-ta", 57004}, {"x-iscii-te", 57005},
    {"x-mac-arabic", 10004}, {"x-mac-ce", 10029}, {"x-mac-chinesesimp", 10008},
    {"x-mac-chinesetrad", 10002}, {"x-mac-croatian", 10082}, {"x-mac-cyrillic", 10007},
    {"x-mac-greek", 10006}, {"x-mac-hebrew", 10005}, {"x-mac-icelandic", 10079}, {"x-mac-japanese", 10001},
    {"x-mac-korean", 10003}, {"x-mac-romanian", 10010}, {"x-mac-thai", 10021}, {"x-mac-turkish", 10081},
    {"x-mac-ukrainian", 10017}, {"x-ms-cp932", 932}, {"x-sjis", 932}, {"x-unicode-2-0-utf-7", 65000},
    {"x-unicode-2-0-utf-8", 65001}, {"x-x-big5", 950},
};
// clang-format on

constexpr std::size_t kLongestName = 100;
constexpr int kUtf32 = 65005;

char LowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

}  // namespace

int FindCodePage(std::string_view encoding)
{
    if (encoding.empty())
        return 0;
    if (encoding.size() >= kLongestName)
        return -1;
    std::string name(encoding);
    if (name.rfind("UTF-32", 0) == 0)
        return kUtf32;
    std::transform(name.begin(), name.end(), name.begin(), LowerAscii);
    const auto* found =
        std::lower_bound(std::begin(kEncodings), std::end(kEncodings), std::string_view(name),
                         [](const Encoding& entry, std::string_view key) { return entry.name < key; });
    return found != std::end(kEncodings) && found->name == name ? found->codePage : -1;
}

}  // namespace DUI
