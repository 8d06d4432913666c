#include "quorin/svg/writing/XmlText.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(XmlText, escapesWhatWouldEndOrChangeAnAttribute) {
    EXPECT_EQ(xmlAttributeText("a<b>&\"c\"'"), "a&lt;b&gt;&amp;&quot;c&quot;'");
    EXPECT_EQ(xmlAttributeText("\t\n\r "), "&#9;&#10;&#13; ");
    EXPECT_EQ(xmlAttributeText("é€"), "é€");
}

TEST(XmlText, leavesOutWhatXmlCannotHold) {
    EXPECT_EQ(xmlAttributeText(std::string("a\0b\x01\x1f", 5)), "ab");
}

}  // namespace
}  // namespace quorin
