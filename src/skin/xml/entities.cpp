#include "skin/xml/tables.h"

#include <algorithm>

namespace DUI {
namespace {

struct Entity {
    std::string_view name;
    unsigned character;
};

// The character entities of HTML 4 and "apos", by lower-case name. If two names differ only in case, the
// capitalised one is kept.
// clang-format off
constexpr Entity kEntities[] = {
    {"aacute", 193}, {"acirc", 194}, {"acute", 180}, {"aelig", 198}, {"agrave", 192}, {"alefsym", 8501},
    {"alpha", 913}, {"amp", 38}, {"and", 8743}, {"ang", 8736}, {"apos", 39}, {"aring", 197},
    {"asymp", 8776}, {"atilde", 195}, {"auml", 196}, {"bdquo", 8222}, {"beta", 914}, {"brvbar", 166},
    {"bull", 8226}, {"cap", 8745}, {"ccedil", 199}, {"cedil", 184}, {"cent", 162}, {"chi", 935},
    {"circ", 710}, {"clubs", 9827}, {"cong", 8773}, {"copy", 169}, {"crarr", 8629}, {"cup", 8746},
    {"curren", 164}, {"dagger", 8225}, {"darr", 8659}, {"deg", 176}, {"delta", 916}, {"diams", 9830},
    {"divide", 247}, {"eacute", 201}, {"ecirc", 202}, {"egrave", 200}, {"empty", 8709}, {"emsp", 8195},
    {"ensp", 8194}, {"epsilon", 917}, {"equiv", 8801}, {"eta", 919}, {"eth", 208}, {"euml", 203},
    {"euro", 8364}, {"exist", 8707}, {"fnof", 402}, {"forall", 8704}, {"frac12", 189}, {"frac14", 188},
    {"frac34", 190}, {"frasl", 8260}, {"gamma", 915}, {"ge", 8805}, {"gt", 62}, {"harr", 8660},
    {"hearts", 9829}, {"hellip", 8230}, {"iacute", 205}, {"icirc", 206}, {"iexcl", 161}, {"igrave", 204},
    {"image", 8465}, {"infin", 8734}, {"int", 8747}, {"iota", 921}, {"iquest", 191}, {"isin", 8712},
    {"iuml", 207}, {"kappa", 922}, {"lambda", 923}, {"lang", 9001}, {"laquo", 171}, {"larr", 8656},
    {"lceil", 8968}, {"ldquo", 8220}, {"le", 8804}, {"lfloor", 8970}, {"lowast", 8727}, {"loz", 9674},
    {"lrm", 8206}, {"lsaquo", 8249}, {"lsquo", 8216}, {"lt", 60}, {"macr", 175}, {"mdash", 8212},
    {"micro", 181}, {"middot", 183}, {"minus", 8722}, {"mu", 924}, {"nabla", 8711}, {"nbsp", 160},
    {"ndash", 8211}, {"ne", 8800}, {"ni", 8715}, {"not", 172}, {"notin", 8713}, {"nsub", 8836},
    {"ntilde", 209}, {"nu", 925}, {"oacute", 211}, {"ocirc", 212}, {"oelig", 338}, {"ograve", 210},
    {"oline", 8254}, {"omega", 937}, {"omicron", 927}, {"oplus", 8853}, {"or", 8744}, {"ordf", 170},
    {"ordm", 186}, {"oslash", 216}, {"otilde", 213}, {"otimes", 8855}, {"ouml", 214}, {"para", 182},
    {"part", 8706}, {"permil", 8240}, {"perp", 8869}, {"phi", 934}, {"pi", 928}, {"piv", 982},
    {"plusmn", 177}, {"pound", 163}, {"prime", 8243}, {"prod", 8719}, {"prop", 8733}, {"psi", 936},
    {"quot", 34}, {"radic", 8730}, {"rang", 9002}, {"raquo", 187}, {"rarr", 8658}, {"rceil", 8969},
    {"rdquo", 8221}, {"real", 8476}, {"reg", 174}, {"rfloor", 8971}, {"rho", 929}, {"rlm", 8207},
    {"rsaquo", 8250}, {"rsquo", 8217}, {"sbquo", 8218}, {"scaron", 352}, {"sdot", 8901}, {"sect", 167},
    {"shy", 173}, {"sigma", 931}, {"sigmaf", 962}, {"sim", 8764}, {"spades", 9824}, {"sub", 8834},
    {"sube", 8838}, {"sum", 8721}, {"sup", 8835}, {"sup1", 185}, {"sup2", 178}, {"sup3", 179},
    {"supe", 8839}, {"szlig", 223}, {"tau", 932}, {"there4", 8756}, {"theta", 920}, {"thetasym", 977},
    {"thinsp", 8201}, {"thorn", 222}, {"tilde", 732}, {"times", 215}, {"trade", 8482}, {"uacute", 218},
    {"uarr", 8657}, {"ucirc", 219}, {"ugrave", 217}, {"uml", 168}, {"upsih", 978}, {"upsilon", 933},
    {"uuml", 220}, {"weierp", 8472}, {"xi", 926}, {"yacute", 221}, {"yen", 165}, {"yuml", 376},
    {"zeta", 918}, {"zwj", 8205}, {"zwnj", 8204},
};
// clang-format on

}  // namespace

unsigned FindXmlEntity(std::string_view lowerName)
{
    const auto* found =
        std::lower_bound(std::begin(kEntities), std::end(kEntities), lowerName,
                         [](const Entity& entry, std::string_view name) { return entry.name < name; });
    return found != std::end(kEntities) && found->name == lowerName ? found->character : 0;
}

}  // namespace DUI
