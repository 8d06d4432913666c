#include "quorin/svg/writing/XmlText.h"

namespace quorin {

std::string xmlAttributeText(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            // As they are, they would be read back as spaces.
            case '\t':
                result += "&#9;";
                break;
            case '\n':
                result += "&#10;";
                break;
            case '\r':
                result += "&#13;";
                break;
            default:
                if (static_cast<unsigned char>(c) >= 0x20)
                    result += c;
        }
    }
    return result;
}

}  // namespace quorin
