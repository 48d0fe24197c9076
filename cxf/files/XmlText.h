#pragma once

#include <pugixml.hpp>
#include <string>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

/// Collects what the XML library writes. A stream of the standard library would keep quiet about having no
/// memory, and end the text early.
class XmlText : public pugi::xml_writer {
public:
    void write(void const* data, std::size_t size) override {
        text_.append(static_cast<char const*>(data), size);
    }
    std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

} // namespace Norvelian::ColorExchangeFormat
