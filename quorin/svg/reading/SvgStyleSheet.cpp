#include "quorin/svg/reading/SvgStyleSheet.h"

#include <algorithm>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// More than anybody writes; the rest of a longer list selects nothing.
constexpr std::size_t mostClasses = 100;

std::vector<std::string_view> splitClasses(std::string_view classes) {
    std::vector<std::string_view> names;
    while (!(classes = trimmedSvgSpace(classes)).empty() && names.size() < mostClasses) {
        const auto end = std::find_if(classes.begin(), classes.end(), isSvgSpace);
        names.push_back(classes.substr(0, static_cast<std::size_t>(end - classes.begin())));
        classes.remove_prefix(names.back().size());
    }
    return names;
}

/// Of the brace that closes the one at `open`; the size of the text when none does.
std::size_t closingBrace(std::string_view text, std::size_t open) {
    std::size_t depth = 0;
    std::size_t at = open;
    for (; at < text.size(); at = findOutsideQuotes(text, "{}", at + 1)) {
        depth = text[at] == '{' ? depth + 1 : depth - 1;
        if (depth == 0)
            break;
    }
    return at;
}

}  // namespace

void SvgStyleSheet::add(std::string_view text,
                        FunctionRef<void(std::string_view, std::size_t)> unread) {
    const std::string_view sheet = texts.emplace_back(withoutCssComments(text));
    std::size_t start = 0;
    while (start < sheet.size()) {
        const std::size_t brace = findOutsideQuotes(sheet, "{;", start);
        const std::string_view head = trimmedSvgSpace(sheet.substr(start, brace - start));
        if (brace == sheet.size() || sheet[brace] == ';') {  // "@import url(x);"
            start = brace + 1;
            continue;
        }
        const std::size_t end = closingBrace(sheet, brace);
        if (!head.starts_with('@'))
            addRule(head, sheet.substr(brace + 1, end - brace - 1), sheet, unread);
        start = end + 1;
    }
}

void SvgStyleSheet::addRule(std::string_view selectorList, std::string_view block,
                            std::string_view sheet,
                            FunctionRef<void(std::string_view, std::size_t)> unread) {
    SvgRule& rule = rules.emplace_back();
    rule.sheet = texts.size() - 1;
    forEachDeclaration(block, [&](const SvgDeclaration& declaration) {
        rule.declarations.push_back(declaration);
        rule.declarations.back().offset =
            static_cast<std::size_t>(declaration.value.data() - sheet.data());
    });

    for (std::size_t start = 0; start < selectorList.size();) {
        const std::size_t end = std::min(selectorList.find(',', start), selectorList.size());
        const std::string_view text = trimmedSvgSpace(selectorList.substr(start, end - start));
        Selector selector;
        if (parse(text, selector)) {
            selector.rule = static_cast<std::uint32_t>(rules.size() - 1);
            selectors.push_back(std::move(selector));
            addToIndex(static_cast<std::uint32_t>(selectors.size() - 1));
        } else {
            unread(text, static_cast<std::size_t>(text.data() - sheet.data()));
        }
        start = end + 1;
    }
}

bool SvgStyleSheet::parse(std::string_view text, Selector& selector) {
    SvgScanner scanner(text);
    if (!scanner.take('*'))
        selector.type = scanner.word();
    while (!scanner.isAtEnd()) {
        const bool isId = scanner.take('#');
        if (!isId && !scanner.take('.'))
            return false;
        const std::string_view name = scanner.word();
        if (name.empty())
            return false;
        (isId ? selector.ids : selector.classes).push_back(name);
    }
    return !text.empty();
}

void SvgStyleSheet::addToIndex(std::uint32_t index) {
    const Selector& selector = selectors[index];
    if (!selector.ids.empty())
        byId[selector.ids.front()].push_back(index);
    else if (!selector.classes.empty())
        byClass[selector.classes.front()].push_back(index);
    else
        byType[selector.type].push_back(index);
}

std::array<std::size_t, 4> SvgStyleSheet::Selector::strength() const {
    return {ids.size(), classes.size(), type.empty() ? 0u : 1u, rule};
}

bool SvgStyleSheet::Selector::selects(const SvgSelectable& element,
                                      std::span<const std::string_view> elementClasses) const {
    const auto isMissing = [&](std::string_view name) {
        return std::find(elementClasses.begin(), elementClasses.end(), name) ==
               elementClasses.end();
    };
    return (type.empty() || type == element.type) &&
           std::all_of(ids.begin(), ids.end(),
                       [&](std::string_view id) { return id == element.id; }) &&
           std::none_of(classes.begin(), classes.end(), isMissing);
}

std::vector<const SvgRule*> SvgStyleSheet::rulesFor(const SvgSelectable& element) const {
    if (selectors.empty())
        return {};
    const std::vector<std::string_view> classes = splitClasses(element.classes);
    std::vector<std::uint32_t> found;
    const auto search = [&](const Index& index, std::string_view name) {
        const auto entry = index.find(name);
        if (entry == index.end())
            return;
        for (const std::uint32_t candidate : entry->second)
            if (selectors[candidate].selects(element, classes))
                found.push_back(candidate);
    };
    search(byType, "");
    search(byType, element.type);
    search(byId, element.id);
    for (const std::string_view name : classes)
        search(byClass, name);

    std::sort(found.begin(), found.end(), [&](std::uint32_t a, std::uint32_t b) {
        return selectors[a].strength() < selectors[b].strength();
    });
    std::vector<const SvgRule*> result;
    for (const std::uint32_t index : found)
        result.push_back(&rules[selectors[index].rule]);
    return result;
}

}  // namespace quorin
