#include "page/HtmlText.h"

#include <gtest/gtest.h>

namespace quillmeter {
namespace {

TEST(HtmlText, EscapesMarkupInTextAndAttributes) {
  EXPECT_EQ(htmlText("a<b>&\"'</script>"), "a&lt;b&gt;&amp;&quot;&#39;&lt;/script&gt;");
  EXPECT_EQ(htmlText("größe \U0001F600"), "größe \U0001F600");
}

TEST(HtmlText, ShowsWhatIsNoTextAsSuch) {
  EXPECT_EQ(htmlText("a\xff\xc3z"), "a\uFFFD\uFFFDz");
  EXPECT_EQ(htmlText("a\nb\x01"
                     "c\x1b[31m"),
            "a b c [31m");
}

}  // namespace
}  // namespace quillmeter
