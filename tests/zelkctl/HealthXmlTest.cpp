// SPDX-License-Identifier: MIT
// Reads the formats of the health report that are XML with a real XML reader.
#include "HealthSample.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <map>

namespace {

/// An element with its attributes as "name=value", its text, and the elements in it.
struct Element
{
    std::string name, text;
    std::map<std::string, std::string> attributes;
    std::vector<Element> children;

    /// Returns all elements below of this name, in order.
    std::vector<Element> All(const std::string &wanted) const
    {
        std::vector<Element> found;
        for (const Element &child : children) {
            if (child.name == wanted)
                found.push_back(child);
            for (Element &below : child.All(wanted))
                found.push_back(std::move(below));
        }
        return found;
    }
};

Element readElement(QXmlStreamReader &xml)
{
    Element element;
    element.name = xml.name().toString().toStdString();
    for (const QXmlStreamAttribute &attribute : xml.attributes())
        element.attributes[attribute.name().toString().toStdString()] =
            attribute.value().toString().toStdString();
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement())
            element.children.push_back(readElement(xml));
        else if (xml.isCharacters())
            element.text += xml.text().toString().toStdString();
    }
    return element;
}

/// Reads a document and returns its root.
Element readXml(const std::string &text)
{
    QXmlStreamReader xml(QByteArray::fromStdString(text));
    Element root;
    while (!xml.atEnd() && !xml.isStartElement())
        xml.readNext();
    root = readElement(xml);
    while (!xml.atEnd())
        xml.readNext();
    EXPECT_FALSE(xml.hasError()) << "line " << xml.lineNumber() << ": "
                                 << xml.errorString().toStdString();
    return root;
}

using HealthXmlTest = HealthSample;

TEST_F(HealthXmlTest, JunitHasOneTestForEachFinding)
{
    makeSample(true, true);
    for (const char *profile : kProfiles) {
        SCOPED_TRACE(profile);
        const auto expected = planned(profile);
        const Element root = readXml(health({"--profile", profile, "--format", "junit"}).out);
        EXPECT_EQ(root.name, "testsuites");
        const std::map<std::string, std::string> counts = {
            {"tests", std::to_string(expected.size())},
            {"failures", std::to_string(CountOf(expected, "error"))},
            {"errors", "0"},
            {"skipped", std::to_string(expected.size() - CountOf(expected, "error"))}};
        EXPECT_EQ(root.attributes, counts);
        ASSERT_EQ(root.children.size(), 1u);
        auto ofSuite = root.children[0].attributes;
        EXPECT_EQ(ofSuite.extract("name").mapped(), "zelkctl health");
        EXPECT_EQ(ofSuite, counts);
        Rows wanted, found;
        for (const PlannedFinding &each : expected)
            wanted.insert(each.file + " | " + each.kind + ' ' + each.wants + " (" + each.profile +
                          (each.severity == "error" ? " | failure " + each.rule : " | skipped ") +
                          " | " + SentenceOf(each));
        for (const Element &test : root.All("testcase")) {
            ASSERT_EQ(test.children.size(), 1u);
            const Element &outcome = test.children[0];
            const std::string &name = test.attributes.at("name");
            const auto type = outcome.attributes.find("type");
            found.insert(test.attributes.at("classname") + " | " +
                         name.substr(0, name.rfind(", ")) + " | " + outcome.name + ' ' +
                         (type != outcome.attributes.end() ? type->second : "") + " | " +
                         WithoutDetail(outcome.attributes.at("message")));
        }
        EXPECT_EQ(Difference(wanted, found), "");
    }
}

TEST_F(HealthXmlTest, HtmlHasOneRowForEachFinding)
{
    makeSample(true, true);
    for (const char *profile : kProfiles) {
        SCOPED_TRACE(profile);
        const auto expected = planned(profile);
        const Element root = readXml(health({"--profile", profile, "--format", "html"}).out);
        EXPECT_EQ(root.name, "html");
        EXPECT_EQ(root.All("p").front().text, TotalsOf(expected));
        std::set<std::string> causes;
        Rows wanted, found;
        for (const PlannedFinding &each : expected) {
            causes.insert(each.cause);
            const char *const simulator = each.profile == "msts"        ? "MSTS"
                                          : each.profile == "openrails" ? "Open Rails"
                                                                        : "both";
            wanted.insert(each.severity + " | " + simulator + " | " + each.file +
                          (each.line > 0 ? ", line " + std::to_string(each.line) : "") + " | " +
                          SentenceOf(each) + " | " + each.place);
        }
        EXPECT_EQ(root.All("h2").size(), causes.size());
        for (const Element &row : root.All("tr")) {
            const std::vector<Element> cells = row.All("td");
            if (cells.empty())
                continue; // the head of a table
            ASSERT_EQ(cells.size(), 5u);
            EXPECT_FALSE(cells[4].All("li").empty()) << cells[2].text << " is needed by nothing";
            std::string sentence = cells[3].text;
            const std::string perhaps = "Perhaps:";
            if (sentence.ends_with(perhaps))
                sentence.resize(sentence.size() - perhaps.size());
            const std::vector<Element> near = cells[3].All("li");
            const bool isMisplaced = sentence.find("exists") != sentence.npos ||
                                     sentence.find("quotes") != sentence.npos;
            found.insert(cells[0].All("span").at(0).text + " | " + cells[1].text + " | " +
                         cells[2].text + " | " + WithoutDetail(sentence) + " | " +
                         (isMisplaced ? near.at(0).text : ""));
        }
        EXPECT_EQ(Difference(wanted, found), "");
    }
}

} // namespace
