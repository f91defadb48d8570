#include "core/pages/download_name.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using namespace std::string_view_literals;

struct NameCase {
    std::string_view suggested;
    std::string_view plain;
};

// clang-format off
constexpr NameCase kNameCases[] = {
    {"list.csv",                          "list.csv"},
    {"Two words (1).pdf",                 "Two words (1).pdf"},
    {"caf\xC3\xA9.txt",                   "caf\xC3\xA9.txt"},
    // Folders.
    {"../x",                              "x"},
    {"../../.ssh/authorized_keys",        "authorized_keys"},
    {"..",                                "download"},
    {".",                                 "download"},
    {"/etc/passwd",                       "passwd"},
    {"/",                                 "download"},
    {"a/b/c.txt",                         "c.txt"},
    {"a/b/",                              "download"},
    {"..\\..\\x.txt",                     "x.txt"},
    {"C:\\Windows\\x.txt",                "x.txt"},
    {"C:x.txt",                           "C_x.txt"},
    {"\\\\server\\share\\x.txt",          "x.txt"},
    {"..%2Fx",                            "x"},
    {"%2e%2e%5cx",                        "x"},
    {"%2Fetc%2Fpasswd",                   "passwd"},
    {"..%252Fx",                          "%2Fx"},          // a file system reads no escapes
    {"50% off.txt",                       "50% off.txt"},
    // What is not seen.
    {"a\0b.txt"sv,                        "ab.txt"},
    {"a\r\nb\t.txt",                      "ab.txt"},
    {"a%00b%0A.txt",                      "ab.txt"},
    {"photo\xE2\x80\xAEgpj.exe",          "photogpj.exe"},
    {"a\xE2\x81\xA6\xE2\x80\x8B.txt",     "a.txt"},
    {"\xE9t\xE9.txt",                     "_t_.txt"},
    // Edges.
    {".bashrc",                           "bashrc"},
    {"...x",                              "x"},
    {"-rf",                               "rf"},
    {"--config=x",                        "config=x"},
    {" . - x",                            "x"},
    {"x.",                                "x"},
    {"x.exe. . ",                         "x.exe"},
    {"x  ",                               "x"},
    {"",                                  "download"},
    {"   ",                               "download"},
    {"\xE2\x80\xAE",                      "download"},
    // What file systems keep for themselves.
    {"a<b>c:d\"e|f?g*h.txt",              "a_b_c_d_e_f_g_h.txt"},
    {"x.txt:stream",                      "x.txt_stream"},
    {"CON",                               "_CON"},
    {"nul.txt",                           "_nul.txt"},
    {"Com1.tar.gz",                       "_Com1.tar.gz"},
    {"LPT9 .txt",                         "_LPT9 .txt"},
    {"COM\xC2\xB9",                       "_COM\xC2\xB9"},
    {"CONIN$",                            "_CONIN$"},
    {"console.txt",                       "console.txt"},
    {"COM10",                             "COM10"},
};
// clang-format on

TEST(TheNameOfADownload, IsAPlainOne) {
    for (const NameCase& row : kNameCases) {
        EXPECT_EQ(PlainDownloadName(row.suggested), row.plain) << row.suggested;
        EXPECT_EQ(PlainDownloadName(row.plain), row.plain == "%2Fx" ? "x" : row.plain);
    }
}

TEST(TheNameOfADownload, HasAtMost200BytesAndKeepsItsExtension) {
    EXPECT_EQ(PlainDownloadName(std::string(300, 'a') + ".csv"), std::string(196, 'a') + ".csv");
    EXPECT_EQ(PlainDownloadName(std::string(196, 'a') + ".csv"), std::string(196, 'a') + ".csv");
    EXPECT_EQ(PlainDownloadName(std::string(300, 'a')), std::string(200, 'a'));
    EXPECT_EQ(PlainDownloadName("a." + std::string(300, 'b')), "a." + std::string(198, 'b'));
    std::string accented;
    for (int i = 0; i < 150; ++i)
        accented += "\xC3\xA9";
    EXPECT_EQ(PlainDownloadName(accented + ".txt"), accented.substr(0, 196) + ".txt");
    EXPECT_EQ(PlainDownloadName("a" + accented + ".txt"), "a" + accented.substr(0, 194) + ".txt");
}

struct ProgramCase {
    std::string_view name;
    bool runs;
};

// clang-format off
constexpr ProgramCase kProgramCases[] = {
    {"x.desktop", true},  {"x.exe", true},     {"x.sh", true},        {"x.bat", true},
    {"x.msi", true},      {"x.AppImage", true},{"x.jar", true},       {"X.EXE", true},
    {"x.pdf.scr", true},  {"x.lnk", true},     {"x.ps1", true},       {"x.exe. ", true},
    {"x.py", true},       {"x.deb", true},     {"x.url", true},       {"x.vbs", true},
    {"x.txt", false},     {"x.csv", false},    {"x.pdf", false},      {"x.html", false},
    {"x.exe.txt", false}, {"exe", false},      {".exe", false},       {"", false},
    {"x.zip", false},     {"x.png", false},    {"x.", false},
};
// clang-format on

TEST(TheNameOfADownload, TellsWhatRunsWhenItIsOpened) {
    for (const ProgramCase& row : kProgramCases)
        EXPECT_EQ(RunsWhenOpened(row.name), row.runs) << row.name;
}

} // namespace
} // namespace tallowmere
