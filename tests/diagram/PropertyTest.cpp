// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of the diagram control: defaults, what a setter stores, marks and repaints, errors.
#include "tests/diagram/TestDiagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::TestDiagram;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

using Events = std::vector<std::string>;

struct NumberProperty {
    const char* name;
    double (*get)(const DiagramState&);
    double standard;
    void (*set)(DiagramState&, double);
    double value; // another one
    Events events;
};

template<typename T>
T as(double v) {
    return static_cast<T>(v);
}

// A getter and a setter of one property, as doubles.
#define PROPERTY(NAME, TYPE) #NAME, [](const DiagramState& s) { return static_cast<double>(s.NAME()); }
#define SETTER(NAME, TYPE) [](DiagramState& s, double v) { s.set##NAME(as<TYPE>(v)); }

using Int = std::int32_t;

const NumberProperty NUMBER_PROPERTIES[] = {
    {PROPERTY(DiagTyp, Int), 0, SETTER(DiagTyp, Int), 77, {"changed DiagTyp"}},
    {PROPERTY(showMittel, bool), 0, SETTER(ShowMittel, bool), 1, {}},
    {PROPERTY(Hilfslinie1, double), 0, SETTER(Hilfslinie1, double), 1e-300, {}},
    {PROPERTY(Hilfslinie2, double), 0, SETTER(Hilfslinie2, double), -4.5, {}},
    {PROPERTY(Bogenmass, Int), 0, SETTER(Bogenmass, Int), 9, {"changed Bogenmass"}},
    {PROPERTY(AngelOffset, double),
     -1.5707963267949,
     SETTER(AngelOffset, double),
     0.25,
     {"changed AngelOffset", "repaint at once"}},
    {PROPERTY(Ycenter, Int), 0, SETTER(Ycenter, Int), -12, {}},
    {PROPERTY(LongRaster, Int), 10, SETTER(LongRaster, Int), 1, {"changed LongRaster", "repaint"}},
    {PROPERTY(RadRaster, Int), 12, SETTER(RadRaster, Int), 1, {"changed RadRaster", "repaint"}},
    {PROPERTY(Y1Low, double), 0, SETTER(Y1Low, double), 200, {"changed Y1Low"}},
    {PROPERTY(Y1High, double), 100, SETTER(Y1High, double), -200, {"changed Y1High"}},
    {"Y1MinLow",
     [](const DiagramState& s) { return s.properties().Y1MinLow; }, // its getter is tested on its own
     0,
     SETTER(Y1MinLow, double),
     7,
     {"changed Y1Low"}},
    {PROPERTY(Y2Low, double), 0, SETTER(Y2Low, double), -1, {"changed Y2Low"}},
    {PROPERTY(Y2High, double), 100, SETTER(Y2High, double), -1, {"changed Y2High"}},
    {PROPERTY(XLow, double), 37257, SETTER(XLow, double), 45000.5, {"changed XLow"}},
    {PROPERTY(XHigh, double), 37258, SETTER(XHigh, double), 44000.25, {"changed XHigh"}},
    {PROPERTY(D1, Colour), 255, SETTER(D1, Colour), 0x123456, {"changed D1"}},
    {PROPERTY(D2, Colour), 0xFF0000, SETTER(D2, Colour), 0x123456, {"changed D2"}},
    {PROPERTY(Xaxe, Colour), 0, SETTER(Xaxe, Colour), 0x123456, {"changed Xaxe"}},
    {PROPERTY(Y1axe, Colour), 255, SETTER(Y1axe, Colour), 0x123456, {"changed Y1axe"}},
    {PROPERTY(Y2axe, Colour), 0xFF0000, SETTER(Y2axe, Colour), 0x123456, {"changed Y2axe"}},
    {PROPERTY(BgCol, Colour), 0xFFFFFF, SETTER(BgCol, Colour), 0x123456, {"changed BgCol", "background"}},
    {PROPERTY(Enabled, bool), 1, SETTER(EnabledState, bool), 0, {"changed Enabled"}},
    {PROPERTY(ListIndex, std::int16_t), -1, SETTER(ListIndex, std::int16_t), 5, {"changed ListIndex"}},
};

#undef PROPERTY
#undef SETTER

TEST(Properties, NumbersHaveDefaultsAndSettersMarkAndRepaint) {
    for (const NumberProperty& p : NUMBER_PROPERTIES) {
        SCOPED_TRACE(p.name);
        TestDiagram diagram;
        EXPECT_EQ(p.get(diagram), p.standard);
        p.set(diagram, p.value);
        EXPECT_EQ(p.get(diagram), p.value);
        EXPECT_THAT(diagram.events, UnorderedElementsAreArray(p.events));
    }
}

TEST(Properties, ASetterTouchesNoOtherProperty) {
    for (const NumberProperty& set : NUMBER_PROPERTIES) {
        TestDiagram diagram;
        set.set(diagram, set.value);
        for (const NumberProperty& other : NUMBER_PROPERTIES) {
            // The unit alone decides in which unit the angle is read.
            const bool tied = std::string_view(set.name) == "Bogenmass";
            if (&other != &set && !(tied && std::string_view(other.name) == "AngelOffset")) {
                EXPECT_EQ(other.get(diagram), other.standard) << set.name << " changed " << other.name;
            }
        }
    }
}

TEST(Properties, InitialiseBringsBackEveryDefault) {
    TestDiagram diagram;
    for (const NumberProperty& p : NUMBER_PROPERTIES) {
        p.set(diagram, p.value);
    }
    diagram.setHeadLine("Titel");
    diagram.setHeadLine2("Untertitel");
    diagram.setEinheit("m/s");
    diagram.setAchseText("a;b");
    diagram.setFussnote("Fuß");
    diagram.setRichtungRein("ein");
    diagram.setRichtungRaus("aus");
    diagram.setSkalaFont({"Courier", 20, true, true});
    kelvrum::testing::fillSeries(diagram, {{1, 2, 3}, {4, 5, 6}});
    diagram.AddItem(3);
    diagram.take();
    diagram.initialise();
    for (const NumberProperty& p : NUMBER_PROPERTIES) {
        EXPECT_EQ(p.get(diagram), p.standard) << p.name;
    }
    EXPECT_EQ(diagram.HeadLine() + diagram.HeadLine2() + diagram.Einheit() + diagram.AchseText() +
                  diagram.Fussnote() + diagram.RichtungRein() + diagram.RichtungRaus(),
              "");
    EXPECT_EQ(diagram.SkalaFont(), Font());
    EXPECT_EQ(diagram.ListCount(), 0);
    EXPECT_EQ(diagram.DataCount(), 0);
    EXPECT_EQ(diagram.DataIndex(), -1);
    EXPECT_EQ(seriesTable().columns(), 1U);
    EXPECT_THAT(diagram.events, ::testing::Contains("background"));
}

struct TextProperty {
    const char* name;
    const std::string& (DiagramState::*get)() const;
    void (DiagramState::*set)(std::string_view);
};

const TextProperty TEXT_PROPERTIES[] = {
    {"Einheit", &DiagramState::Einheit, &DiagramState::setEinheit},
    {"AchseText", &DiagramState::AchseText, &DiagramState::setAchseText},
    {"HeadLine", &DiagramState::HeadLine, &DiagramState::setHeadLine},
    {"HeadLine2", &DiagramState::HeadLine2, &DiagramState::setHeadLine2},
    {"Fussnote", &DiagramState::Fussnote, &DiagramState::setFussnote},
    {"RichtungRein", &DiagramState::RichtungRein, &DiagramState::setRichtungRein},
    {"RichtungRaus", &DiagramState::RichtungRaus, &DiagramState::setRichtungRaus},
};

TEST(Properties, TextsAreEmptyAtFirstAndAreOnlyStored) {
    for (const TextProperty& p : TEXT_PROPERTIES) {
        SCOPED_TRACE(p.name);
        TestDiagram diagram;
        EXPECT_EQ((diagram.*p.get)(), "");
        (diagram.*p.set)("µg/m³");
        for (const TextProperty& other : TEXT_PROPERTIES) {
            EXPECT_EQ((diagram.*other.get)(), other.name == p.name ? "µg/m³" : "") << other.name;
        }
        EXPECT_THAT(diagram.events, IsEmpty());
    }
}

TEST(Properties, SkalaFontCopiesTheFourAttributes) {
    TestDiagram diagram;
    EXPECT_EQ(diagram.SkalaFont(), (Font{"Arial", 8, false, false}));
    Font font{"Courier", 12.5, true, true};
    diagram.setSkalaFont(font);
    font.Name = "changed later";
    EXPECT_EQ(diagram.SkalaFont(), (Font{"Courier", 12.5, true, true}));
    EXPECT_THAT(diagram.events, ElementsAre("changed SkalaFont"));
}

TEST(Properties, XcenterIsInert) {
    TestDiagram diagram;
    int object = 0;
    diagram.setXcenter(&object);
    EXPECT_EQ(diagram.Xcenter(), nullptr);
    EXPECT_THAT(diagram.events, IsEmpty());
}

TEST(Properties, ReadingY1MinLowCopiesItIntoY1LowAndYieldsZero) {
    TestDiagram diagram;
    diagram.setY1Low(3);
    diagram.setY1MinLow(7);
    EXPECT_EQ(diagram.Y1Low(), 3);
    diagram.take();
    EXPECT_EQ(diagram.Y1MinLow(), 0);
    EXPECT_EQ(diagram.Y1Low(), 7);
    EXPECT_EQ(diagram.properties().Y1MinLow, 7);
    EXPECT_THAT(diagram.take(), ElementsAre("changed Y1Low"));
    EXPECT_THAT(diagram.Y1MinLow(), 0);
}

TEST(Properties, RasterBelowOneIsAnErrorAndKeepsTheValue) {
    for (const std::int32_t bad : {0, -1, -32768, std::numeric_limits<std::int32_t>::min()}) {
        SCOPED_TRACE(bad);
        TestDiagram diagram;
        for (const bool rings : {true, false}) {
            try {
                rings ? diagram.setLongRaster(bad) : diagram.setRadRaster(bad);
                ADD_FAILURE() << "no error";
            } catch (const InvalidPropertyValue& error) {
                EXPECT_EQ(error.number(), -2147217060);
                EXPECT_STREQ(error.what(), "Ungültiger Eigenschaftswert");
            }
        }
        EXPECT_EQ(diagram.LongRaster(), 10);
        EXPECT_EQ(diagram.RadRaster(), 12);
        EXPECT_THAT(diagram.events, IsEmpty());
    }
}

TEST(Properties, LargeRastersAreTaken) {
    TestDiagram diagram;
    diagram.setLongRaster(std::numeric_limits<std::int32_t>::max());
    diagram.setRadRaster(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(diagram.LongRaster(), 2147483647);
    EXPECT_EQ(diagram.RadRaster(), 2147483647);
}

struct AngleCase {
    std::int32_t unit;
    double angle;
    double radians;
};
const AngleCase ANGLES[] = {
    {0, 0, 0},
    {0, 1.25, 1.25},
    {0, -100, -100},
    {1, 0, 0},
    {1, 90, 1.5707963267949},
    {1, -90, -1.5707963267949},
    {1, 360, 6.28318530717959},
    {1, 720.5, 12.5750972606191},
    {2, 100, 1.5707963267949},
    {2, -50, -0.78539816339745},
    {2, 400, 6.2831853071796},
};

TEST(Angles, CrossTheInterfaceInTheUnitOfBogenmass) {
    for (const auto& [unit, angle, radians] : ANGLES) {
        SCOPED_TRACE(::testing::Message() << "unit " << unit << ", angle " << angle);
        TestDiagram diagram;
        diagram.setBogenmass(unit);
        diagram.setAngelOffset(angle);
        diagram.AddItem(1, angle);
        diagram.AddItem(1, 0);
        diagram.setDirection(1, angle);
        EXPECT_THAT(diagram.AngelOffset(), DoubleNear(angle, 1e-9));
        EXPECT_THAT(diagram.Direction(0), DoubleNear(angle, 1e-9));
        EXPECT_THAT(diagram.Direction(1), DoubleNear(angle, 1e-9));
        diagram.setBogenmass(UNIT_RADIANS);
        EXPECT_THAT(diagram.AngelOffset(), DoubleNear(radians, 1e-12));
        EXPECT_THAT(diagram.Direction(0), DoubleNear(radians, 1e-12));
        EXPECT_THAT(diagram.Direction(1), DoubleNear(radians, 1e-12));
        EXPECT_THAT(diagram.directionList(),
                    ElementsAre(DoubleNear(radians, 1e-12), DoubleNear(radians, 1e-12)));
    }
}

TEST(Angles, ConstantsAreTheGivenOnes) {
    TestDiagram diagram;
    diagram.AddItem(0, 1);
    diagram.setBogenmass(UNIT_DEGREES);
    EXPECT_EQ(diagram.Direction(0), 57.2957795130823);
    diagram.setDirection(0, 1);
    diagram.setBogenmass(UNIT_GON);
    diagram.AddItem(0, 1);
    EXPECT_THAT(diagram.directionList(), ElementsAre(0.0174532925199433, 0.015707963267949));
    diagram.setBogenmass(UNIT_RADIANS);
    diagram.setDirection(0, 1);
    diagram.setBogenmass(UNIT_GON);
    EXPECT_EQ(diagram.Direction(0), 63.6619772367581);
}

TEST(Angles, AnUnknownUnitStoresNothingAndYieldsZero) {
    for (const std::int32_t unit : {-1, 3, 2147483647}) {
        SCOPED_TRACE(unit);
        TestDiagram diagram;
        diagram.AddItem(4, 0.5);
        diagram.setBogenmass(unit);
        diagram.setAngelOffset(1);
        diagram.setDirection(0, 1);
        diagram.AddItem(6, 1.0);
        diagram.AddItem(5, 1.0, 0);
        EXPECT_EQ(diagram.AngelOffset(), 0);
        EXPECT_EQ(diagram.Direction(0), 0);
        diagram.setBogenmass(UNIT_RADIANS);
        EXPECT_EQ(diagram.AngelOffset(), -1.5707963267949);
        EXPECT_THAT(diagram.directionList(), ElementsAre(0.5, 0));
        EXPECT_THAT(diagram.speedList(), ElementsAre(5, 6));
    }
}

} // namespace
} // namespace kelvrum
