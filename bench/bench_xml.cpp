// The XML reader against pugixml: parse a generated document of 10 MB, walk it and read every attribute once.

#include <cstdio>
#include <string>

#include <pugixml.hpp>

#include <qvui/skin/xml/xml_document.h>

#include "ratio_reporter.h"

namespace {

constexpr std::size_t kDocumentSize = 10'000'000;

// Window templates as skins have them: nested panels, and controls with some eight attributes.
std::string MakeDocument()
{
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<window_template>\n";
    char buffer[512];
    for (int window = 0; text.size() < kDocumentSize; ++window) {
        std::snprintf(
            buffer, sizeof buffer,
            "  <window name=\"window_%d\" width=\"640\" height=\"480\" caption=\"ids_caption_%d\">\n", window,
            window);
        text += buffer;
        for (int panel = 0; panel < 8; ++panel) {
            std::snprintf(buffer, sizeof buffer,
                          "    <vert_layout name=\"panel_%d\" inset=\"4,4,4,4\" back_style=\"card\">\n",
                          panel);
            text += buffer;
            for (int control = 0; control < 12; ++control) {
                std::snprintf(
                    buffer, sizeof buffer,
                    "      <button name=\"button_%d_%d\" text=\"ids_button_%d\" tooltip=\"Save &amp; close\""
                    " position=\"%d,%d,%d,%d\" control_style=\"button_main\" tab_stop=\"true\" shortcut=\"s\""
                    " text_style=\"button_text_style\"/>\n",
                    panel, control, control, control, panel, control + 80, panel + 24);
                text += buffer;
            }
            text += "      <label>A text between tags</label>\n    </vert_layout>\n";
        }
        text += "  </window>\n";
    }
    return text + "</window_template>\n";
}

const std::string& Document()
{
    static const std::string text = MakeDocument();
    return text;
}

struct Sum {
    std::size_t elements = 0;
    std::size_t attributes = 0;
    std::size_t bytes = 0;
};

void ReadAttributes(const DUI::CXmlDocument& xml, Sum& sum)
{
    ++sum.elements;
    for (int i = 0;; ++i) {
        const CString name = xml.GetAttributeName(i);
        if (name.IsEmpty())
            return;
        ++sum.attributes;
        sum.bytes += name.View().size() + xml.GetAttribute(name).View().size();
    }
}

void Walk(DUI::CXmlDocument& xml, Sum& sum)
{
    ReadAttributes(xml, sum);
    while (xml.FindChildElement()) {
        xml.IntoElement();
        Walk(xml, sum);
        xml.OutOfElement();
    }
}

void Walk(const pugi::xml_node& node, Sum& sum)
{
    ++sum.elements;
    for (const pugi::xml_attribute attribute : node.attributes()) {
        ++sum.attributes;
        sum.bytes += std::string_view(attribute.name()).size() + std::string_view(attribute.value()).size();
    }
    for (const pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element)
            Walk(child, sum);
}

void Report(benchmark::State& state, const Sum& sum)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Document().size()));
    state.counters["elements"] = static_cast<double>(sum.elements);
    state.counters["attributes"] = static_cast<double>(sum.attributes);
    state.counters["bytes"] = static_cast<double>(sum.bytes);
}

void QvuiReader(benchmark::State& state)
{
    const CString text(std::string_view{Document()});
    Sum sum;
    double index = 0;
    for (auto _ : state) {
        sum = {};
        DUI::CXmlDocument xml;
        if (!xml.SetDocument(text) || !xml.FindElement())
            state.SkipWithError("the document is not well formed");
        Walk(xml, sum);
        index = static_cast<double>(xml.GetIndexSize());
    }
    Report(state, sum);
    state.counters["index/document"] = index / static_cast<double>(Document().size());
}

void PugiXml(benchmark::State& state)
{
    const std::string& text = Document();
    Sum sum;
    for (auto _ : state) {
        sum = {};
        pugi::xml_document xml;
        if (!xml.load_buffer(text.data(), text.size()))
            state.SkipWithError("the document is not well formed");
        Walk(xml.document_element(), sum);
    }
    Report(state, sum);
}

BENCHMARK(QvuiReader)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(PugiXml)->Unit(benchmark::kMillisecond)->Repetitions(5);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    qvui::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("QvuiReader", "PugiXml", 2.0);
}
