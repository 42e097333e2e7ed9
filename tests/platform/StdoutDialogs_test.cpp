#include "platform/dialogs/StdoutDialogs.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(StdoutDialogs, ALineABox) {
    char * text = nullptr;
    std::size_t size = 0;
    std::FILE * out = open_memstream(&text, &size);
    platform::StdoutDialogs dialogs(out);
    dialogs.messageBox("Title", "za\xBF\xF3\xB3\xE6");
    EXPECT_EQ(std::string(text, size), "msgbox: zażółć\n") << "must be out at once";
    dialogs.messageBox("", "a\r\nb\\c\td%s");
    dialogs.messageBox("Title", "");
    std::fclose(out);
    EXPECT_EQ(std::string(text, size), "msgbox: zażółć\nmsgbox: a\\r\\nb\\\\c\td%s\nmsgbox: \n");
    std::free(text);
}

} // namespace
