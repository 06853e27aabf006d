// SPDX-License-Identifier: MIT
// Checks: with any content in one file of a small installation, every check ends with a verdict and
// a report of printable lines, and a second run says the same. The first byte chooses the file.
#include "Input.h"
#include "host/RuntimeError.h"
#include "validation/SmallInstallation.h"
#include "validation/TSValidation.h"

namespace {

constexpr const char *kFiles[] = {
    "Trains/Trainset/A/a.wag",         "Trains/Trainset/A/e.eng", "Trains/Trainset/A/Sound/a.sms",
    "Trains/Trainset/A/Cabview/e.cvf", "Trains/Trainset/A/a.s",   "Trains/Trainset/A/a.sd",
    "Trains/Consists/c.con",           "Routes/R/Services/s.srv", "Routes/R/Activities/x.act",
};

std::vector<std::string> reportOf(SmallInstallation &place)
{
    TSValidation checks(place.Location(), place.Files(), 1);
    const bool bad = checks.CheckAllStock() != TSValidation::IsValid;
    Require(bad == !checks.Errors().empty());
    checks.CheckConsist(place.At("Trains/Consists/c.con"));
    checks.CheckStockInConsists(place.At("Trains/Trainset/A/a.wag"));
    checks.CheckConsistUseInRoute("R", "c");
    checks.CheckStockUseInRoute(place.At("Trains/Trainset/A/a.wag"), "R");
    try {
        checks.CheckShape(place.At("Trains/Trainset/A/a.s"));
    } catch (const host::RuntimeError &error) {
        Require(error.Detail().find("a.s") != std::string::npos);
    }
    std::vector<std::string> lines;
    for (const std::string &key : checks.Errors()) {
        lines.push_back(TSValidation::TranslateError(key));
        Require(!lines.back().empty());
        for (const char c : lines.back())
            Require(static_cast<unsigned char>(c) >= ' ');
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static SmallInstallation place;
    Input input(data, size);
    const std::string name = kFiles[input.Below(std::size(kFiles))];
    static const Changes whole = [] {
        Changes all;
        for (const char *file : kFiles)
            all.emplace_back(file, place.Folder().Read(file));
        return all;
    }();
    place.Folder().Write(name, input.Rest());
    const std::vector<std::string> report = reportOf(place);
    Require(reportOf(place) == report);
    for (const auto &[file, content] : whole)
        if (file == name)
            place.Folder().Write(file, *content);
    return 0;
}
