// SPDX-License-Identifier: GPL-3.0-or-later
// The table of configuration forms: what a station of each form has, and that its name leads to it.
#include "config/ConfigForms.h"

#include "config/ReadConf.h"
#include "tests/testing/FakeFiles.h"

#include <gtest/gtest.h>

#include <set>

namespace kelvrum {
namespace {

using testing::noFile;

TEST(ConfigForms, InTheOrderOfTheFileDialog) {
    const struct {
        ConfigKind kind;
        const char* fileName;
        const char* description;
        DataPlace dataPlace;
        DataFiles dataFiles;
        bool offersPolar;
        bool hasBatchFolder;
    } rows[] = {
        {ConfigKind::ini, "QEL.ini", "QEL-Datenbank", DataPlace::dataFolder, DataFiles::byChannel, true,
         true},
        {ConfigKind::binary, "VARNIX.CFG", "Varnix Konfigurationsdateien", DataPlace::baseFolder,
         DataFiles::byDay, false, false},
    };
    const auto forms = configForms();
    ASSERT_EQ(forms.size(), std::size(rows));
    for (std::size_t i = 0; i < forms.size(); ++i) {
        EXPECT_EQ(forms[i].kind, rows[i].kind);
        EXPECT_EQ(forms[i].fileName, rows[i].fileName);
        EXPECT_EQ(forms[i].description, rows[i].description);
        EXPECT_EQ(forms[i].dataPlace, rows[i].dataPlace);
        EXPECT_EQ(forms[i].dataFiles, rows[i].dataFiles);
        EXPECT_EQ(forms[i].offersPolar, rows[i].offersPolar);
        EXPECT_EQ(forms[i].hasBatchFolder, rows[i].hasBatchFolder);
    }
}

TEST(ConfigForms, EachHasAKindOfItsOwnAndIsFoundByItsName) {
    std::set<ConfigKind> kinds = {ConfigKind::none};
    for (const ConfigForm& form : configForms()) {
        EXPECT_TRUE(kinds.insert(form.kind).second) << form.fileName;
        const auto station = readConf(std::string("/srv/A/").append(form.fileName), noFile());
        ASSERT_TRUE(station.has_value()) << form.fileName;
        EXPECT_EQ(station->Kind, form.kind);
        EXPECT_EQ(station->BaseFolder, "/srv/A/");
        EXPECT_EQ(&formOf(*station), &form);
    }
    EXPECT_EQ(&formOf(StationConfig()), &configForms().front());
}

TEST(ConfigForms, TheFileOfAProjectFolder) {
    EXPECT_EQ(projectForm().kind, ConfigKind::ini);
    EXPECT_EQ(projectFile("D:\\Projekte\\A"), "D:\\Projekte\\A\\QEL.ini");
    EXPECT_EQ(projectFile("D:\\Projekte\\A\\"), "D:\\Projekte\\A\\QEL.ini");
    EXPECT_EQ(projectFile("/srv/A/"), "/srv/A/QEL.ini");
    EXPECT_EQ(projectFile("/srv/A"), "/srv/A\\QEL.ini");
}

} // namespace
} // namespace kelvrum
