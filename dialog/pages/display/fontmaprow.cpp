#include "dialog/pages/display/fontmaprow.h"

#include "dialog/widgets/grid/gridwnd.h"
#include "dialog/widgets/lockmark.h"
#include "dialog/widgets/stringconversion.h"
#include "store/appcfg.h"
#include "store/numbers.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>

#include <algorithm>

namespace ovsettings {

namespace {

/// The fields of a font key.
enum Field : std::size_t {
    faceField,
    styleField,
    weightField,
    charsetField,
    italicField,
    underlineField,
    strikeoutField,
    boldField,
};

/// The face of a stroke font that is not mapped.
constexpr const char* kNotMapped = "0";
/// The style of a font that has no style by name.
constexpr const char* kNoStyle = "NONE";
constexpr int kHeight = 30;
constexpr int kHeaviest = 1000;
/// Fonts know no character set here; this one leaves it to the face.
constexpr int kDefaultCharset = 1;

bool isMapped(const std::string& face) {
    return !face.empty() && face != kNotMapped;
}

} // namespace

const CFontMapRow::FlagField CFontMapRow::kFlagFields[] = {
    {italicField, kItalic},
    {underlineField, kUnderline},
    {strikeoutField, kStrikeout},
    {boldField, kBold},
};

CFontMapRow::CFontMapRow(GridWnd& grid, int row, std::string key, std::string caption,
                         Orv::iAppConfiguration& configuration)
    : grid_(grid),
      row_(row),
      key_(std::move(key)),
      caption_(std::move(caption)),
      configuration_(configuration) {
    grid_.setCellText(row_, kStrokeFontColumn, QCoreApplication::translate("ovsettings", caption_.c_str()));
}

void CFontMapRow::load() {
    stored_ = read();
    showLock();
    mapping_ = {};
    const bool isWhole = readMapping();
    unchanged_ = mapping_;
    if (isWhole)
        show();
}

void CFontMapRow::follow(DroppedEdits& dropped) {
    if (read() == stored_)
        return;
    const bool edited = isModified();
    const Mapping edit = mapping_;
    load();
    if (!edited)
        return;
    if (const auto locked = firstLockedField()) {
        dropped.push_back({key_, *locked});
        return;
    }
    mapping_ = edit;
    show();
}

CFontMapRow::Stored CFontMapRow::read() const {
    Stored stored;
    Orv::getValues(configuration_, key_, stored.values, stored.locks);
    return stored;
}

bool CFontMapRow::readMapping() {
    const std::vector<std::string>& values = stored_.values;
    if (values.size() <= faceField)
        return false;
    mapping_.face = values[faceField];
    if (mapping_.face == kNotMapped)
        return true;
    if (values.size() <= styleField)
        return false;
    mapping_.style = values[styleField];
    if (values.size() <= weightField)
        return false;
    mapping_.weight = Orv::integerFromText(values[weightField]);
    if (values.size() <= charsetField)
        return false;
    mapping_.charset = Orv::integerFromText(values[charsetField]);
    for (const FlagField& field : kFlagFields) {
        if (values.size() <= field.field)
            return false;
        if (values[field.field] == "1")
            mapping_.flags |= field.flag;
    }
    return true;
}

void CFontMapRow::store() {
    Orv::iAppConfiguration::Property property(key_);
    if (!configuration_.getProperty(property))
        return;
    const auto set = [&property](std::size_t field, const std::string& text) {
        if (field < property.values.size())
            property.values[field] = text;
    };
    set(faceField, mapping_.face);
    if (isMapped(mapping_.face)) {
        set(styleField, mapping_.style);
        set(weightField, std::to_string(mapping_.weight));
        set(charsetField, std::to_string(mapping_.charset));
        for (const FlagField& field : kFlagFields)
            set(field.field, mapping_.flags & field.flag ? "1" : "0");
    }
    configuration_.setProperty(property);
    unchanged_ = mapping_;
    stored_ = read();
}

QFont CFontMapRow::description() const {
    QFont font;
    if (isMapped(mapping_.face))
        font.setFamily(toQString(mapping_.face));
    font.setPixelSize(kHeight);
    // Without a weight of its own a font has the usual one.
    font.setWeight(mapping_.weight > 0 ? static_cast<QFont::Weight>(std::min(mapping_.weight, kHeaviest))
                                       : QFont::Normal);
    font.setItalic(mapping_.flags & kItalic);
    font.setUnderline(mapping_.flags & kUnderline);
    font.setStrikeOut(mapping_.flags & kStrikeout);
    // A chooser that is not told begins with any style of the same weight, a slanted one too.
    font.setStyleName(QFontInfo(font).styleName());
    return font;
}

QString CFontMapRow::mappedFace() const {
    return isMapped(mapping_.face) ? toQString(mapping_.face) : QString();
}

void CFontMapRow::take(const QFont& chosen) {
    // Names of faces are the same in any case; one that the user left alone stays as it is spelled.
    if (chosen.family().compare(toQString(mapping_.face), Qt::CaseInsensitive) != 0) {
        mapping_.face = toUtf8(chosen.family());
        mapping_.charset = kDefaultCharset;
    }
    mapping_.weight = chosen.weight();
    const QString styleName =
        chosen.styleName().isEmpty() ? QFontDatabase::styleString(chosen) : chosen.styleName();
    mapping_.style = styleName.isEmpty() ? kNoStyle : toUtf8(styleName);
    mapping_.flags = (chosen.bold() ? kBold : 0) | (chosen.italic() ? kItalic : 0) | effectsOf(chosen);
    show();
}

void CFontMapRow::takeEffects(const QFont& chosen) {
    mapping_.flags = (mapping_.flags & (kBold | kItalic)) | effectsOf(chosen);
    show();
}

unsigned CFontMapRow::effectsOf(const QFont& font) {
    return (font.underline() ? kUnderline : 0) | (font.strikeOut() ? kStrikeout : 0);
}

void CFontMapRow::remove() {
    clearCell();
    if (isMapped(mapping_.face))
        mapping_.face.clear();
}

void CFontMapRow::clearCell() {
    showText({});
}

bool CFontMapRow::isLocked() const {
    return firstLockedField().has_value();
}

std::optional<std::size_t> CFontMapRow::firstLockedField() const {
    const std::vector<bool> locks = read().locks;
    const auto found = std::ranges::find(locks, true);
    return found != locks.end() ? std::optional(static_cast<std::size_t>(found - locks.begin()))
                                : std::nullopt;
}

void CFontMapRow::show() {
    struct {
        unsigned flag;
        const char* word;
    } constexpr kStyleWords[] = {
        {kBold, QT_TRANSLATE_NOOP("ovsettings", " Bold")},
        {kItalic, QT_TRANSLATE_NOOP("ovsettings", " Italic")},
        {kUnderline, QT_TRANSLATE_NOOP("ovsettings", " Underline")},
        {kStrikeout, QT_TRANSLATE_NOOP("ovsettings", " Strikeout")},
    };
    QString text = mapping_.face == kNotMapped ? QString() : toQString(mapping_.face);
    for (const auto& style : kStyleWords) {
        if (mapping_.flags & style.flag)
            text += QCoreApplication::translate("ovsettings", style.word);
    }
    showText(text);
}

void CFontMapRow::showText(const QString& text) {
    grid_.setCellText(row_, kScaleableFontColumn, text);
    if (isLocked())
        return;
    // The buttons of the current row may lie over the end of a long text.
    GridCellStyle style = grid_.cellStyle(row_, kScaleableFontColumn);
    style.toolTip = text;
    grid_.setCellStyle(row_, kScaleableFontColumn, style);
}

void CFontMapRow::showLock() {
    const std::optional<std::size_t> locked = firstLockedField();
    for (const int column : {kStrokeFontColumn, kScaleableFontColumn}) {
        GridCellStyle style{.readOnly = true, .greyed = locked.has_value(), .setting = SettingField{key_}};
        if (locked)
            style.toolTip = lockToolTip(configuration_, key_, *locked);
        grid_.setCellStyle(row_, column, style);
    }
}

} // namespace ovsettings
