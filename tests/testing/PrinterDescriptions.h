// SPDX-License-Identifier: GPL-3.0-or-later
// Printers as a print scheduler knows them, for those of its queues that have a description.
#pragma once

namespace kelvrum::testing {

// A printer that passes documents on as they come, but cannot print at the edges of its sheets: 5, 6, 7 and
// 10 mm at the left, upper, right and lower edge of A4, 20 mm all around of A5.
inline constexpr const char* BORDERS_PPD = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "BORDERS.PPD"
*Manufacturer: "Test"
*Product: "(Borders)"
*ModelName: "Borders"
*ShortNickName: "Borders"
*NickName: "Borders"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize A5/A5: ""
*CloseUI: *PageSize
*OpenUI *PageRegion/Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: ""
*PageRegion A5/A5: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "14.173 28.346 575.158 824.992"
*ImageableArea A5: "56.693 56.693 363.307 538.307"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*PaperDimension A5: "420 595"
*OpenUI *InputSlot/Source: PickOne
*DefaultInputSlot: Upper
*InputSlot Upper/Upper: ""
*InputSlot Lower/Lower: ""
*CloseUI: *InputSlot
*OpenUI *Duplex/Both Sides: PickOne
*DefaultDuplex: None
*Duplex None/Off: ""
*Duplex DuplexNoTumble/Long Edge: ""
*Duplex DuplexTumble/Short Edge: ""
*CloseUI: *Duplex
*OpenUI *ColorModel/Colour: PickOne
*DefaultColorModel: RGB
*ColorModel RGB/Colour: ""
*ColorModel Gray/Grey: ""
*CloseUI: *ColorModel
)PPD";

// A printer whose filter for documents fails.
inline constexpr const char* FILTER_PPD = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "FILTER.PPD"
*Manufacturer: "Test"
*Product: "(Filter)"
*ModelName: "Filter"
*ShortNickName: "Filter"
*NickName: "Filter"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter2: "application/pdf application/vnd.cups-raw 0 %1"
*OpenUI *PageSize/Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
)PPD";

} // namespace kelvrum::testing
