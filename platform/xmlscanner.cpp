#include "platform/xmlscanner.h"

#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace platform {

namespace {

constexpr std::size_t kDeepest = 255;
constexpr std::size_t kMostAttributes = 1000;
constexpr std::size_t kFewAttributes = 8; // compared with each other faster than sorted
constexpr std::string_view kMark = "\xef\xbb\xbf";

/// What a byte may be without a closer look.
enum Class : unsigned char {
    kName = 1,
    kNameStart = 2,
    kBlank = 4,
    kText = 8,
    kDoubleQuoted = 16,
    kSingleQuoted = 32,
    kPassage = 64, ///< in a remark, a section of text or an instruction
    kIndent = 128, ///< a blank that stands for itself in a text
};

constexpr std::array<unsigned char, 256> classes() {
    std::array<unsigned char, 256> table{};
    const auto isOneOf = [](unsigned c, std::string_view some) {
        return some.find(static_cast<char>(c)) != std::string_view::npos;
    };
    for (unsigned c = 0; c < 0x80; ++c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isOneOf(c, "_:");
        const bool isBlank = c != 0 && isOneOf(c, " \t\r\n");
        const bool isCharacter = c >= 0x20 || isBlank;
        // What a reader makes something else of is not skipped over.
        const bool isPlainInText = isCharacter && c != '\r';
        const bool isPlainInQuotes = c >= 0x20;
        const auto mark = [&](bool is, Class what) {
            table[c] = static_cast<unsigned char>(table[c] | (is ? what : 0));
        };
        mark(isLetter, kNameStart);
        mark(isLetter || (c >= '0' && c <= '9') || isOneOf(c, "-."), kName);
        mark(isBlank, kBlank);
        mark(isBlank && isPlainInText, kIndent);
        mark(isPlainInText && !isOneOf(c, "<&]"), kText);
        mark(isPlainInQuotes && !isOneOf(c, "<&\""), kDoubleQuoted);
        mark(isPlainInQuotes && !isOneOf(c, "<&'"), kSingleQuoted);
        mark(isCharacter && !isOneOf(c, "-]?"), kPassage);
    }
    return table;
}

constexpr auto kClasses = classes();

bool is(char c, Class what) {
    return (kClasses[static_cast<unsigned char>(c)] & what) != 0;
}

/// Over what stands before most elements.
const char* skipSpaces(const char* at, const char* end) {
    constexpr std::string_view kSpaces = "        ";
    while (static_cast<std::size_t>(end - at) >= kSpaces.size() &&
           std::memcmp(at, kSpaces.data(), kSpaces.size()) == 0)
        at += kSpaces.size();
    return at;
}

/// The NUL behind a text is of no class and ends the way.
const char* skip(const char* at, Class what) {
    for (;;) {
        if (!is(at[0], what))
            return at;
        if (!is(at[1], what))
            return at + 1;
        if (!is(at[2], what))
            return at + 2;
        if (!is(at[3], what))
            return at + 3;
        at += 4;
    }
}

bool isBeyondAscii(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

bool isXmlCharacter(char32_t c) {
    if (c < 0x20)
        return c == '\t' || c == '\n' || c == '\r';
    return c < 0xd800 || (c > 0xdfff && c != 0xfffe && c != 0xffff && c <= 0x10ffff);
}

struct Passage {
    std::string_view begin;
    std::string_view end;
    const char* unended;
};
constexpr Passage kRemark{"<!--", "-->", "a comment is not ended"};
constexpr Passage kSection{"<![CDATA[", "]]>", "a section of character data is not ended"};
constexpr Passage kInstruction{"<?", "?>", "an instruction is not ended"};

constexpr std::string_view kEntities[] = {"lt", "gt", "amp", "apos", "quot"};

struct RefusedDeclaration {
    std::string_view word;
    const char* cause;
};
constexpr RefusedDeclaration kRefusedDeclarations[] = {
    {"<!ENTITY", "entity declarations are not allowed"},
    {"<!ATTLIST", "attribute declarations are not allowed"},
};

/// A part of the declaration at the start, in its order.
struct DeclaredPart {
    std::string_view name;
    bool isNeeded;
    bool (*isValid)(std::string_view value);
};
constexpr DeclaredPart kDeclaredParts[] = {
    {"version", true,
     [](std::string_view value) {
         return value.size() > 2 && value.starts_with("1.") &&
                value.find_first_not_of("0123456789", 2) == std::string_view::npos;
     }},
    {"encoding", false,
     [](std::string_view value) {
         return !value.empty() && std::ranges::all_of(value, [](char c) { return c != ':' && is(c, kName); });
     }},
    {"standalone", false,
     [](std::string_view value) {
         return value == "yes" || value == "no";
     }},
};

class Scanner {
public:
    Scanner(const std::string& text, XmlTable* table)
        : begin_(text.data()), end_(begin_ + text.size()), at_(begin_), table_(table) {}

    Result<> scan() {
        if (document())
            return {};
        return Error{{}, std::move(cause_), std::count(begin_, at_, '\n') + 1};
    }

private:
    /// An element whose end has not come yet.
    struct Open {
        const char* name;
        std::size_t length;
        std::uint32_t place; ///< in the table
        bool hasText;
        bool hasRemarks;
        bool isPlain;
    };

    bool document() {
        if (startsWith(kMark))
            at_ += kMark.size();
        if (startsWith("<?xml") && is(at_[5], kBlank) && !declaration())
            return false;
        bool hasType = false;
        for (bool hasRoot = false;;) {
            at_ = skip(at_, kBlank);
            if (at_ == end_)
                return hasRoot || refuse("there is no element");
            if (*at_ != '<')
                return refuseCharacter("text stands beside the root element");
            bool isFine = true;
            if (startsWith("<!DOCTYPE")) {
                isFine = hasType || hasRoot ? refuse("a document type stands in a wrong place") : type();
                hasType = true;
            } else if (at_[1] == '!') {
                isFine = passage(kRemark);
            } else if (at_[1] == '?') {
                isFine = instruction();
            } else {
                isFine = hasRoot ? refuse("there is more than one root element") : root();
                hasRoot = true;
            }
            if (!isFine)
                return false;
        }
    }

    bool declaration() {
        const auto* known = std::begin(kDeclaredParts);
        at_ += 5;
        for (;;) {
            const char* before = at_;
            at_ = skip(at_, kBlank);
            if (startsWith("?>"))
                break;
            const char* name = at_;
            at_ = skip(at_, kName);
            const std::string_view word(name, static_cast<std::size_t>(at_ - name));
            while (known != std::end(kDeclaredParts) && known->name != word && !known->isNeeded)
                ++known;
            std::string_view value;
            if (before == name || known == std::end(kDeclaredParts) || known->name != word || !equalSign() ||
                !literal(value) || !known->isValid(value))
                return refuse("the declaration at the start is not well-formed");
            ++known;
        }
        if (known == std::begin(kDeclaredParts))
            return refuse("the declaration at the start is not well-formed");
        at_ += 2;
        return true;
    }

    bool equalSign() {
        at_ = skip(at_, kBlank);
        if (*at_ != '=')
            return false;
        at_ = skip(at_ + 1, kBlank);
        return true;
    }

    /// Something in quotes, as it stands.
    bool literal(std::string_view& value) {
        const char quote = *at_;
        if (quote != '"' && quote != '\'')
            return false;
        const char* first = ++at_;
        while (*at_ != quote) {
            if (!character())
                return false;
        }
        value = {first, static_cast<std::size_t>(at_ - first)};
        ++at_;
        return true;
    }

    bool type() {
        at_ += std::string_view("<!DOCTYPE").size();
        if (!is(*at_, kBlank))
            return refuse("the document type is not well-formed");
        for (std::string_view ignored; *at_ != '>';) {
            if (*at_ == '[')
                return innerPart();
            if (*at_ == '"' || *at_ == '\'') {
                if (!literal(ignored))
                    return false;
            } else if (is(*at_, kBlank) || is(*at_, kName)) {
                ++at_;
            } else if (!isBeyondAscii(*at_)) {
                return refuse("the document type is not well-formed");
            } else if (!character()) {
                return false;
            }
        }
        ++at_;
        return true;
    }

    /// Whatever an inner part declares, it is refused by what matters most in it.
    bool innerPart() {
        const char* cause = "a document type with an inner part is not allowed";
        const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
        std::size_t first = std::string_view::npos;
        for (const RefusedDeclaration& refused : kRefusedDeclarations) {
            if (const auto place = rest.find(refused.word); place < first) {
                first = place;
                cause = refused.cause;
            }
        }
        at_ += first == std::string_view::npos ? 0 : first;
        return refuse(cause);
    }

    bool root() {
        do {
            if (!markup() || (depth_ > 0 && !text()))
                return false;
        } while (depth_ > 0);
        return true;
    }

    bool markup() {
        if (at_[1] == '/')
            return endTag();
        const bool isSection = startsWith(kSection.begin);
        if (depth_ > 0) {
            Open& around = open_[depth_ - 1];
            around.isPlain = false;
            around.hasText = around.hasText || isSection;
            around.hasRemarks = around.hasRemarks || (!isSection && (at_[1] == '!' || at_[1] == '?'));
        }
        if (at_[1] == '!')
            return passage(isSection ? kSection : kRemark);
        return at_[1] == '?' ? instruction() : startTag();
    }

    bool text() {
        Open& around = open_[depth_ - 1];
        for (;;) {
            at_ = skip(skipSpaces(*at_ == '\n' ? at_ + 1 : at_, end_), kIndent);
            around.hasText = around.hasText || (*at_ != '<' && *at_ != '\r');
            at_ = skip(at_, kText);
            if (*at_ == '<')
                return true;
            if (startsWith(kSection.end))
                return refuse("]]> stands in a text");
            around.isPlain = around.isPlain && *at_ != '&' && *at_ != '\r';
            if (*at_ == '&' ? !reference() : !character())
                return false;
        }
    }

    bool startTag() {
        Open& open = open_[depth_ < kDeepest ? depth_ : 0];
        if (depth_ == kDeepest)
            return refuse("elements are nested too deeply");
        const char* first = ++at_;
        if (!name())
            return false;
        open = {first, static_cast<std::size_t>(at_ - first), begun(first), false, false, true};
        names_.clear();
        for (;;) {
            const char* before = at_;
            at_ = skip(at_, kBlank);
            if (*at_ == '>' || startsWith("/>"))
                break;
            if (before == at_)
                return refuse("a tag is not well-formed");
            if (!attribute())
                return false;
        }
        if (!areDifferent())
            return false;
        const bool isWhole = *at_ == '/';
        at_ += isWhole ? 2 : 1;
        ++depth_;
        if (table_)
            table_->elements[open.place].content = offset(at_);
        if (isWhole)
            close(at_);
        return true;
    }

    /// @return the place in the table.
    std::uint32_t begun(const char* name) {
        if (!table_)
            return 0;
        const auto place = static_cast<std::uint32_t>(table_->elements.size());
        XmlTable::Element& element = table_->elements.emplace_back();
        element.name = offset(name);
        element.nameEnd = offset(at_);
        element.parent = depth_ > 0 ? open_[depth_ - 1].place : place;
        element.attributes = static_cast<std::uint32_t>(table_->attributes.size());
        return place;
    }

    /// @param endTag where the content of the innermost element has ended.
    void close(const char* endTag) {
        const Open& open = open_[--depth_];
        if (!table_)
            return;
        XmlTable::Element& element = table_->elements[open.place];
        element.endTag = offset(endTag);
        element.end = offset(at_);
        element.behind = static_cast<std::uint32_t>(table_->elements.size());
        element.hasText = open.hasText;
        element.hasRemarks = open.hasRemarks;
        element.isPlain = open.isPlain;
    }

    bool attribute() {
        if (names_.size() == kMostAttributes)
            return refuse("too many attributes");
        const char* first = at_;
        if (!name())
            return false;
        const char* last = at_;
        names_.emplace_back(first, static_cast<std::size_t>(last - first));
        if (!equalSign() || (*at_ != '"' && *at_ != '\''))
            return refuse("an attribute has no value in quotes");
        const char quote = *at_++;
        const char* value = at_;
        const Class plain = quote == '"' ? kDoubleQuoted : kSingleQuoted;
        bool isPlain = true;
        for (;;) {
            at_ = skip(at_, plain);
            if (*at_ == quote)
                break;
            if (*at_ == '<')
                return refuse("a < stands in an attribute");
            isPlain = isPlain && *at_ != '&' && !is(*at_, kBlank);
            if (*at_ == '&' ? !reference() : !character())
                return false;
        }
        if (table_)
            table_->attributes.push_back({offset(first), offset(last), offset(value), offset(at_), isPlain});
        ++at_;
        return true;
    }

    bool areDifferent() {
        bool isTwice = false;
        if (names_.size() <= kFewAttributes) {
            for (std::size_t i = 1; i < names_.size(); ++i)
                isTwice = isTwice || std::find(names_.begin(), names_.begin() + static_cast<long>(i),
                                               names_[i]) != names_.begin() + static_cast<long>(i);
        } else {
            std::ranges::sort(names_);
            isTwice = std::ranges::adjacent_find(names_) != names_.end();
        }
        return !isTwice || refuse("an attribute is given twice");
    }

    bool endTag() {
        if (depth_ == 0)
            return refuse("an end tag has no start tag");
        const Open& open = open_[depth_ - 1];
        const char* tag = at_;
        const std::string_view wanted(open.name, open.length);
        at_ += 2;
        const bool isMatch = startsWith(wanted);
        if (isMatch)
            at_ = skip(at_ + open.length, kBlank);
        if (!isMatch || *at_ != '>')
            return refuse("the end of <" + std::string(wanted) + "> is missing");
        ++at_;
        close(tag);
        return true;
    }

    bool passage(const Passage& kind) {
        if (!startsWith(kind.begin))
            return refuse("a tag is not well-formed");
        const char* first = at_;
        at_ += kind.begin.size();
        for (;;) {
            at_ = skip(at_, kPassage);
            if (startsWith(kind.end))
                break;
            if (at_ == end_) {
                at_ = first;
                return refuse(kind.unended);
            }
            if (&kind == &kRemark && startsWith("--"))
                return refuse("two hyphens stand in a comment");
            if (!character())
                return false;
        }
        at_ += kind.end.size();
        return true;
    }

    bool instruction() {
        const char* first = at_;
        at_ += 2;
        const char* target = at_;
        if (!name())
            return false;
        const std::string_view word(target, static_cast<std::size_t>(at_ - target));
        const auto isLetter = [](char a, char b) {
            return (a | 0x20) == b;
        };
        const bool isDeclaration = std::ranges::equal(word, std::string_view("xml"), isLetter);
        const bool isEnded = is(*at_, kBlank) || startsWith("?>");
        at_ = first;
        if (isDeclaration)
            return refuse("a declaration stands elsewhere than at the start");
        return isEnded ? passage(kInstruction) : refuse("an instruction is not well-formed");
    }

    bool name() {
        if (!is(*at_, kNameStart) && !isBeyondAscii(*at_))
            return refuseCharacter("a name is missing");
        for (;;) {
            at_ = skip(at_, kName);
            if (!isBeyondAscii(*at_))
                return true;
            if (!character())
                return false;
        }
    }

    bool reference() {
        const char* first = at_ + 1;
        if (*first == '#')
            return numericReference();
        const char* last = skip(first, kName);
        const std::string_view word(first, static_cast<std::size_t>(last - first));
        if (*last != ';')
            return refuse("an & begins no reference");
        if (std::ranges::find(kEntities, word) == std::end(kEntities))
            return refuse("the entity " + std::string(word) + " is not known");
        at_ = last + 1;
        return true;
    }

    bool numericReference() {
        const char* digit = at_ + 2;
        const bool isHexadecimal = *digit == 'x';
        digit += isHexadecimal;
        const std::string_view digits = isHexadecimal ? "0123456789abcdef" : "0123456789";
        constexpr char32_t kBeyond = 0x110000;
        char32_t number = 0;
        const char* first = digit;
        for (; *digit != ';'; ++digit) {
            const char lower = *digit >= 'A' && *digit <= 'F' ? static_cast<char>(*digit | 0x20) : *digit;
            const auto value = *digit == '\0' ? std::string_view::npos : digits.find(lower);
            if (value == std::string_view::npos)
                return refuse("an & begins no reference");
            number = std::min<char32_t>(static_cast<char32_t>(number * digits.size() + value), kBeyond);
        }
        if (digit == first || !isXmlCharacter(number))
            return refuse("a reference is to no character");
        at_ = digit + 1;
        return true;
    }

    /// One character of any kind.
    bool character() {
        char32_t found = 0;
        if (at_ == end_)
            return refuse({});
        const auto length = utf8Character({at_, static_cast<std::size_t>(end_ - at_)}, found);
        if (length == 0)
            return refuse("a byte is no UTF-8");
        if (!isXmlCharacter(found))
            return refuse("a control character, or none of XML, stands in the file");
        at_ += length;
        return true;
    }

    bool startsWith(std::string_view word) const {
        return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(word);
    }

    std::uint32_t offset(const char* place) const { return static_cast<std::uint32_t>(place - begin_); }

    /// Refuses what stands here, for itself or else for the place.
    bool refuseCharacter(const char* cause) {
        const char* first = at_;
        if (!character())
            return false;
        at_ = first;
        return refuse(cause);
    }

    /// What is missing at the end of a file is missing because it ends there.
    bool refuse(std::string cause) {
        if (at_ != end_ || begin_ == end_)
            cause_ = std::move(cause);
        else if (depth_ == 0)
            cause_ = "the file ends too early";
        else
            cause_ = "the file ends inside of <" +
                     std::string(open_[depth_ - 1].name, open_[depth_ - 1].length) + ">";
        return false;
    }

    const char* const begin_;
    const char* const end_;
    const char* at_;
    XmlTable* const table_;
    std::array<Open, kDeepest> open_;
    std::size_t depth_ = 0;
    std::vector<std::string_view> names_; ///< of the attributes of a tag
    std::string cause_;
};

} // namespace

bool isXmlText(std::string_view text) {
    return isUtf8Of(text, &isXmlCharacter);
}

Result<> scanXml(const std::string& text, XmlTable* table) {
    if (text.size() > kLargestXml)
        return Error{{}, "the file is too large", 1};
    return Scanner(text, table).scan();
}

} // namespace platform
