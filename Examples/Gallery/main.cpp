#include "Examples/Gallery/GalleryDelegate.h"

int main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("stirra-gallery"), QStringLiteral("Gallery"),
                                           QStringLiteral("org.stirra.Gallery")};
    return platform::runApplication(argc, argv, names,
                                    [] { return std::make_unique<gallery::GalleryDelegate>(); });
}
