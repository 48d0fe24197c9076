#include "gui/platform/ShapedTexts_PC.h"

#include "gui/platform/TextConversion_PC.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

namespace GUI {

namespace {

constexpr std::size_t mostTexts = 1024;
constexpr long longestText = 128;

struct Key {
    QFont const* font;
    std::string text;
    bool operator==(Key const&) const = default;
};

std::size_t HashOf(QFont const* font, std::string const& text) {
    return std::hash<std::string>()(text) ^ (std::hash<QFont const*>()(font) << 1U);
}

struct KeyHash {
    std::size_t operator()(Key const& key) const { return HashOf(key.font, key.text); }
};

std::unique_ptr<ShapedText> Shape(QFont const& font, QString const& text) {
    auto shaped = std::make_unique<ShapedText>();
    shaped->layout.setText(text);
    shaped->layout.setFont(font);
    shaped->layout.setCacheEnabled(true);
    shaped->layout.beginLayout();
    QTextLine line = shaped->layout.createLine();
    shaped->layout.endLayout();
    line.setPosition(QPointF(0, 0));
    shaped->width = QFontMetrics(font).horizontalAdvance(text);
    shaped->ascent = line.ascent();
    return shaped;
}

auto& Texts() {
    static std::unordered_map<Key, std::unique_ptr<ShapedText>, KeyHash> texts;
    return texts;
}

} // namespace

void ForgetShapedTexts() { Texts().clear(); }

ShapedText const* FindShapedText(QFont const& font, Utilities::String const& text) {
    // Of an application object that a host has ended without telling.
    static QPointer<QCoreApplication> application;
    if (application != QCoreApplication::instance()) ForgetShapedTexts();
    application = QCoreApplication::instance();
    auto& texts = Texts();
    // What was asked for lately, by hash; a place that is taken by another text only delays its keeping.
    static std::array<std::size_t, 512> seen = {};
    // At scales such as 1.25 a line under the text would lie elsewhere.
    if (text.Length() > longestText || font.underline()) return nullptr;
    std::string const& bytes = text.GetStdString();
    std::size_t const hash = HashOf(&font, bytes);
    auto const found = texts.find(Key{&font, bytes});
    if (found != texts.end()) return found->second.get();
    if (std::exchange(seen[hash % seen.size()], hash) != hash) return nullptr;
    QString const shown = ToShownText(text);
    // Other lines and directions are the painter's own business.
    if (shown.contains(QLatin1Char('\n')) || shown.isRightToLeft()) return nullptr;
    if (texts.size() >= mostTexts) texts.clear();
    return texts.emplace(Key{&font, bytes}, Shape(font, shown)).first->second.get();
}

} // namespace GUI
