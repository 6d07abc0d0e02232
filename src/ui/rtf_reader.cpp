#include "ui/rtf_reader.h"

#include <QSet>
#include <vector>

namespace tessarin {
namespace {

// Groups opened by one of these words hold no body text.
const QSet<QByteArray>& SkippedDestinations() {
    static const QSet<QByteArray> words{
        "fonttbl",   "colortbl",     "stylesheet", "info",      "pict",
        "header",    "headerl",      "headerr",    "headerf",   "footer",
        "footerl",   "footerr",      "footerf",    "listtable", "listoverridetable",
        "rsidtbl",   "generator",    "xmlnstbl",   "themedata", "colorschememapping",
        "datastore", "latentstyles", "filetbl",    "revtbl",    "object",
        "fldinst",   "bkmkstart",    "bkmkend",    "footnote",  "annotation",
        "author",    "operator",     "title",      "subject",   "keywords",
        "comment",   "doccomm",      "nonshppict", "pgdsctbl",
    };
    return words;
}

// Words that stand for one character.
QString CharacterOfWord(const QByteArray& word) {
    if (word == "par" || word == "line" || word == "sect" || word == "page" || word == "row") return "\n";
    if (word == "tab" || word == "cell") return "\t";
    if (word == "emdash") return QString(QChar(0x2014));
    if (word == "endash") return QString(QChar(0x2013));
    if (word == "bullet") return QString(QChar(0x2022));
    if (word == "lquote") return QString(QChar(0x2018));
    if (word == "rquote") return QString(QChar(0x2019));
    if (word == "ldblquote") return QString(QChar(0x201C));
    if (word == "rdblquote") return QString(QChar(0x201D));
    return {};
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexValue(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

class RtfParser {
  public:
    explicit RtfParser(const QByteArray& rtf) : rtf_(rtf) {}

    std::vector<RtfRun> Parse() {
        while (at_ < rtf_.size()) {
            const char c = rtf_[at_++];
            if (c == '{') {
                const State inherited = states_.back();  // a group starts in its parent's format
                states_.push_back(inherited);
                group_start_ = true;
                continue;
            }
            if (c == '}') {
                if (states_.size() > 1) states_.pop_back();
                group_start_ = false;
                continue;
            }
            if (c == '\\') {
                ReadControl();
                continue;
            }
            group_start_ = false;
            if (c == '\r' || c == '\n') continue;  // line breaks in the source are not text
            Emit(QChar::fromLatin1(c), true);
        }
        return std::move(runs_);
    }

  private:
    struct State {
        bool bold = false;
        bool italic = false;
        bool skipped = false;
        int unicode_fallback = 1;  // \ucN: characters that follow each \u as its fallback
    };

    State& Current() { return states_.back(); }

    void ReadControl() {
        if (at_ >= rtf_.size()) return;
        const char c = rtf_[at_];
        if (!IsLetter(c)) {
            ++at_;
            ReadControlSymbol(c);
            return;
        }
        QByteArray word;
        while (at_ < rtf_.size() && IsLetter(rtf_[at_]))
            word += rtf_[at_++];
        bool has_parameter = false;
        bool negative = false;
        long parameter = 0;
        if (at_ < rtf_.size() && rtf_[at_] == '-') {
            negative = true;
            ++at_;
        }
        while (at_ < rtf_.size() && IsDigit(rtf_[at_])) {
            has_parameter = true;
            parameter = parameter * 10 + (rtf_[at_++] - '0');
        }
        if (negative) parameter = -parameter;
        if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;  // the delimiting blank belongs to the word
        ApplyWord(word, has_parameter, parameter);
    }

    void ReadControlSymbol(char c) {
        const bool first_in_group = group_start_;
        group_start_ = false;
        switch (c) {
            case '*':
                if (first_in_group) Current().skipped = true;
                return;
            case '\'': {
                const int high = at_ < rtf_.size() ? HexValue(rtf_[at_]) : -1;
                const int low = at_ + 1 < rtf_.size() ? HexValue(rtf_[at_ + 1]) : -1;
                if (high < 0 || low < 0) return;
                at_ += 2;
                Emit(QChar(static_cast<char16_t>(high * 16 + low)), true);
                return;
            }
            case '\\':
            case '{':
            case '}':
                Emit(QChar::fromLatin1(c), true);
                return;
            case '~':
                Emit(QChar(0x00A0), true);
                return;
            case '_':
                Emit(QChar('-'), true);
                return;
            case '\r':
            case '\n':
                Emit(QChar('\n'), false);
                return;
            default:
                return;  // optional hyphen and the like
        }
    }

    void ApplyWord(const QByteArray& word, bool has_parameter, long parameter) {
        const bool first_in_group = group_start_;
        group_start_ = false;
        if (first_in_group && SkippedDestinations().contains(word)) {
            Current().skipped = true;
            return;
        }
        const bool on = !has_parameter || parameter != 0;
        if (word == "b") {
            Current().bold = on;
        } else if (word == "i") {
            Current().italic = on;
        } else if (word == "plain") {
            Current().bold = false;
            Current().italic = false;
        } else if (word == "uc") {
            Current().unicode_fallback = static_cast<int>(parameter);
        } else if (word == "u") {
            const long code = parameter < 0 ? parameter + 65536 : parameter;
            Emit(QChar(static_cast<char16_t>(code)), false);
            fallback_left_ = Current().unicode_fallback;
        } else {
            const QString character = CharacterOfWord(word);
            for (const QChar ch : character)
                Emit(ch, false);
        }
    }

    // `fallback` marks characters that may stand in for the \u character just written.
    void Emit(QChar character, bool fallback) {
        if (fallback && fallback_left_ > 0) {
            --fallback_left_;
            return;
        }
        fallback_left_ = 0;
        const State& state = states_.back();
        if (state.skipped) return;
        if (runs_.empty() || runs_.back().bold != state.bold || runs_.back().italic != state.italic) {
            runs_.push_back(RtfRun{QString(), state.bold, state.italic});
        }
        runs_.back().text += character;
    }

    const QByteArray& rtf_;
    qsizetype at_ = 0;
    std::vector<State> states_{State()};
    bool group_start_ = false;
    int fallback_left_ = 0;
    std::vector<RtfRun> runs_;
};

}  // namespace

std::vector<RtfRun> ReadRtf(const QByteArray& rtf) {
    return RtfParser(rtf).Parse();
}

QString PlainText(const std::vector<RtfRun>& runs) {
    QString text;
    for (const RtfRun& run : runs)
        text += run.text;
    return text;
}

}  // namespace tessarin
