#include "core/strategy/CardDrawing.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/strategy/CardLayout.h"
#include "core/text/Numbers.h"

namespace {

// In a square of one by one, its top left at 0 0, by suit from the spades on: moves, lines, curves
// and the end, each with its numbers behind it.
constexpr std::array<std::string_view, 5> kSuitPaths = {
    "M .5 0 C .62 .2 .95 .38 .95 .62 C .95 .8 .68 .86 .56 .7 C .57 .84 .62 .93 .7 1 L .3 1 "
    "C .38 .93 .43 .84 .44 .7 C .32 .86 .05 .8 .05 .62 C .05 .38 .38 .2 .5 0 Z",
    "M .5 1 C .38 .78 .05 .56 .05 .3 C .05 .02 .42 0 .5 .26 C .58 0 .95 .02 .95 .3 "
    "C .95 .56 .62 .78 .5 1 Z",
    "M .5 .02 C .63 .02 .72 .12 .72 .24 C .72 .32 .68 .38 .63 .42 C .67 .4 .72 .39 .76 .39 "
    "C .89 .39 .98 .49 .98 .61 C .98 .74 .88 .83 .76 .83 C .67 .83 .6 .78 .56 .7 "
    "C .57 .84 .62 .93 .7 1 L .3 1 C .38 .93 .43 .84 .44 .7 C .4 .78 .33 .83 .24 .83 "
    "C .12 .83 .02 .74 .02 .61 C .02 .49 .11 .39 .24 .39 C .28 .39 .33 .4 .37 .42 "
    "C .32 .38 .28 .32 .28 .24 C .28 .12 .37 .02 .5 .02 Z",
    "M .5 0 L .88 .5 L .5 1 L .12 .5 Z",
    "M .5 0 L .62 .36 L 1 .36 L .69 .58 L .81 .95 L .5 .72 L .19 .95 L .31 .58 L 0 .36 "
    "L .38 .36 Z"};

std::string_view PathOf(int suit) {
    const int at = std::clamp(suit, 1, static_cast<int>(kSuitPaths.size())) - 1;
    return kSuitPaths[static_cast<std::size_t>(at)];
}

bool IsRed(int suit) { return suit == kHearts || suit == kDiamonds; }

std::string Number(double number) { return FormatDouble("%.3f", number); }

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&') {
            escaped += "&amp;";
        } else if (c == '<') {
            escaped += "&lt;";
        } else if (c == '>') {
            escaped += "&gt;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

// The bytes of a text in the encoding of western Europe.
std::string Western(std::string_view text) {
    std::string western;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<unsigned char>(text[i]);
        if (code < 0x80) {
            if (code == '(' || code == ')' || code == '\\') western += '\\';
            western += text[i];
        } else if ((code == 0xC2 || code == 0xC3) && i + 1 < text.size()) {
            const auto next = static_cast<unsigned char>(text[++i]);
            western += static_cast<char>(code == 0xC2 ? next : next + 0x40);
        } else if (code >= 0xC0) {
            western += '?';
        }
    }
    return western;
}

std::string PdfPath(std::string_view path) {
    std::string pdf;
    std::string numbers;
    char last = 0;
    const auto end = [&] {
        constexpr std::string_view kOperators = "MmLlCcZh";
        if (last == 0) return;
        pdf += numbers + kOperators[kOperators.find(last) + 1] + "\n";
        numbers.clear();
    };
    while (!path.empty()) {
        const std::string_view word = path.substr(0, path.find(' '));
        path.remove_prefix(std::min(word.size() + 1, path.size()));
        if (word[0] >= 'A') {
            end();
            last = word[0];
        } else {
            numbers += std::string(word) + " ";
        }
    }
    end();
    return pdf + "f\n";
}

// The page's lines of drawing. It is turned over, since a PDF counts from the bottom.
std::string PdfContents(const CardPage& page, double points) {
    std::string contents = Number(points) + " 0 0 " + Number(-points) + " 0 " +
                           Number(kCardHeight * points) + " cm\n0.1 w\n";
    for (const auto& [left, top, right, bottom] : page.rules) {
        contents += Number(left) + " " + Number(top) + " m " + Number(right) + " " +
                    Number(bottom) + " l S\n";
    }
    for (const auto& [left, base, size, bold, text] : page.texts) {
        contents += std::string("BT /") + (bold ? "B " : "R ") + Number(size) + " Tf 1 0 0 -1 " +
                    Number(left) + " " + Number(base) + " Tm (" + Western(text) + ") Tj ET\n";
    }
    for (const auto& [left, top, size, suit] : page.suits) {
        contents += std::string("q ") + (IsRed(suit) ? "0.75 0 0" : "0 0 0") + " rg " +
                    Number(size) + " 0 0 " + Number(size) + " " + Number(left) + " " + Number(top) +
                    " cm\n" + PdfPath(PathOf(suit)) + "Q\n";
    }
    return contents;
}

}  // namespace

std::string CardAsSvg(const ChartCard& card) {
    const CardPage page = LayOutCard(card);
    const std::string width = FormatDouble("%.0f", kCardWidth);
    const std::string height = FormatDouble("%.0f", kCardHeight);
    std::string svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
        width + "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + " " + height +
        "\">\n<title>" + Escaped(card.title) + "</title>\n<rect width=\"" + width + "\" height=\"" +
        height + "\" fill=\"#ffffff\"/>\n";
    for (const auto& [left, top, right, bottom] : page.rules) {
        svg += "<path d=\"M " + Number(left) + " " + Number(top) + " L " + Number(right) + " " +
               Number(bottom) + "\" stroke=\"#000000\" stroke-width=\"0.1\"/>\n";
    }
    svg += "<g font-family=\"" + std::string(kCardFonts) + "\" fill=\"#000000\">\n";
    for (const auto& [left, base, size, bold, text] : page.texts) {
        svg += "<text x=\"" + Number(left) + "\" y=\"" + Number(base) + "\" font-size=\"" +
               Number(size) + "\"" + (bold ? " font-weight=\"bold\"" : "") + ">" + Escaped(text) +
               "</text>\n";
    }
    svg += "</g>\n";
    for (const auto& [left, top, size, suit] : page.suits) {
        svg += "<path transform=\"translate(" + Number(left) + " " + Number(top) + ") scale(" +
               Number(size) + ")\" fill=\"" + (IsRed(suit) ? "#c00000" : "#000000") + "\" d=\"" +
               std::string(PathOf(suit)) + "\"/>\n";
    }
    return svg + "</svg>\n";
}

std::string CardAsPdf(const ChartCard& card) {
    constexpr double kPoints = 72 / 25.4;  // in a millimetre
    const std::string contents = PdfContents(LayOutCard(card), kPoints);
    const auto font = [](const char* name) {
        return std::string("<</Type/Font/Subtype/Type1/BaseFont/") + name +
               "/Encoding/WinAnsiEncoding>>";
    };
    const std::string objects[] = {
        "<</Type/Catalog/Pages 2 0 R>>",
        "<</Type/Pages/Kids[3 0 R]/Count 1>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 " + Number(kCardWidth * kPoints) + " " +
            Number(kCardHeight * kPoints) +
            "]/Resources<</Font<</R 5 0 R/B 6 0 R>>>>/Contents 4 0 R>>",
        "<</Length " + std::to_string(contents.size()) + ">>\nstream\n" + contents + "endstream",
        font("Helvetica"),
        font("Helvetica-Bold"),
        "<</Title(" + Western(card.title) + ")>>"};
    std::string pdf = "%PDF-1.4\n";
    std::string places = "0000000000 65535 f \n";
    int number = 0;
    for (const std::string& object : objects) {
        std::string place = std::to_string(pdf.size());
        place.insert(0, 10 - place.size(), '0');
        places += place + " 00000 n \n";
        pdf += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const std::string start = std::to_string(pdf.size());
    const std::string count = std::to_string(number + 1);
    return pdf + "xref\n0 " + count + "\n" + places + "trailer\n<</Size " + count +
           "/Root 1 0 R/Info 7 0 R>>\nstartxref\n" + start + "\n%%EOF\n";
}
