// Words, quotes, escapes and comments of a scenario line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dravsim/ScenarioLexer.h"

namespace dravsim {
namespace {

std::vector<std::string> Texts(const LexedLine& line) {
  std::vector<std::string> texts;
  for (const Word& word : line.words) texts.push_back(word.text);
  return texts;
}

TEST(ScenarioLexer, SplitsOnRunsOfBlanksAndTabs) {
  const LexedLine line = LexLine("  dataref \t sim/a[2..3]   =  -1.5 ");
  ASSERT_TRUE(line.Ok());
  EXPECT_EQ(Texts(line), (std::vector<std::string>{"dataref", "sim/a[2..3]", "=", "-1.5"}));
  EXPECT_FALSE(line.words[0].quoted);
}

TEST(ScenarioLexer, QuotedWordsKeepBlanksAndUnescapeOnlyQuoteAndBackslash) {
  const LexedLine line =
      LexLine(R"(echo "two  words" "say \"hi\"" "back\\slash" "c:\dir\n" "")");
  ASSERT_TRUE(line.Ok()) << line.error;
  EXPECT_EQ(Texts(line), (std::vector<std::string>{"echo", "two  words", "say \"hi\"",
                                                   "back\\slash", "c:\\dir\\n", ""}));
  EXPECT_TRUE(line.words[1].quoted);
  EXPECT_TRUE(line.words[5].quoted);  // an empty quoted word is still a word
}

TEST(ScenarioLexer, QuotedDigitsStayMarkedAsQuoted) {
  const LexedLine line = LexLine(R"(message 1 2 "12")");
  ASSERT_EQ(line.words.size(), 4u);
  EXPECT_FALSE(line.words[2].quoted);
  EXPECT_TRUE(line.words[3].quoted);
}

TEST(ScenarioLexer, HashStartsACommentOnlyOutsideQuotes) {
  const std::string text = R"(expect event "a # b" # the rest "is ignored)";
  const LexedLine line = LexLine(text);
  ASSERT_TRUE(line.Ok());
  EXPECT_EQ(Texts(line), (std::vector<std::string>{"expect", "event", "a # b"}));
  EXPECT_EQ(text.substr(0, line.codeLength), R"(expect event "a # b" )");

  const LexedLine glued = LexLine("frame 3#no blank needed");
  EXPECT_EQ(Texts(glued), (std::vector<std::string>{"frame", "3"}));
  const LexedLine afterQuote = LexLine(R"(echo "x"# comment)");
  EXPECT_EQ(Texts(afterQuote), (std::vector<std::string>{"echo", "x"}));
}

TEST(ScenarioLexer, EmptyBlankAndCommentLinesHaveNoWords) {
  for (const char* text : {"", "   \t", "# just a comment", "   # indented comment", "\r"}) {
    const LexedLine line = LexLine(text);
    EXPECT_TRUE(line.Ok()) << text;
    EXPECT_TRUE(line.words.empty()) << text;
  }
}

TEST(ScenarioLexer, MalformedQuotingIsAnErrorWithoutWords) {
  struct Case {
    const char* text;
    const char* error;
  };
  for (const Case& c : {Case{R"(echo "never closed)", "unterminated quote"},
                        Case{R"(echo "ends in escape\")", "unterminated quote"},
                        Case{R"(echo "a"b)", "text right after a closing quote"},
                        Case{R"(echo ab"c")", "a quote inside the word \"ab\""}}) {
    const LexedLine line = LexLine(c.text);
    EXPECT_FALSE(line.Ok()) << c.text;
    EXPECT_EQ(line.error, c.error) << c.text;
    EXPECT_TRUE(line.words.empty()) << c.text;
  }
}

TEST(ScenarioLexer, TrimBlanksRemovesBlanksAndCarriageReturnsAtBothEnds) {
  EXPECT_EQ(TrimBlanks(" \t end \r"), "end");
  EXPECT_EQ(TrimBlanks("a b"), "a b");
  EXPECT_EQ(TrimBlanks("   "), "");
}

}  // namespace
}  // namespace dravsim
