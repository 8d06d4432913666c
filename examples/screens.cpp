// A document is sized after a screen from the library's catalogue, then turned on its side.
#include <quorin/observation/TypedNotification.h>
#include <quorin/screens/DocumentSizeDidChangeNotification.h>
#include <quorin/screens/DocumentSizeViewController.h>

#include <cstddef>
#include <iostream>

using quorin::DocumentSizeDidChangeNotification;

int main() {
    // What an interface file would connect.
    const auto menu = quorin::NSPopUpButton::create();
    const auto controller = quorin::makeObject<quorin::DocumentSizeViewController>();
    controller->setScreenTemplateMenu(menu);
    controller->awakeFromNib();
    controller->view();

    const auto token = quorin::startObserving<DocumentSizeDidChangeNotification>(
        nullptr, [](const DocumentSizeDidChangeNotification& change) {
            std::cout << change.name.value_or("a size of its own") << ": " << change.size.width
                      << " × " << change.size.height << " at " << change.scale << '\n';
        });

    for (std::size_t i = 0; i < menu->numberOfItems(); ++i)
        if (menu->menu()->itemAt(i)->title() == "iPhone 16")
            menu->choose(i);
    controller->swap(nullptr);
}
