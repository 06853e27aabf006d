// SPDX-License-Identifier: MIT
// Files of accepted findings: any text is refused, or read and written again without a loss.
#include "Input.h"
#include "content/Baseline.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto read = content::Baseline::FromText(Input(data, size).Rest());
    if (!read)
        return 0;
    const std::string text = read->ToText();
    const auto again = content::Baseline::FromText(text);
    Require(again && again->Size() == read->Size() && again->ToText() == text);
    return 0;
}
