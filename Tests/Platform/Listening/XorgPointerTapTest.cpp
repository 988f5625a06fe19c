// What is seen of pointers that have more axes than two, on a real X server.

#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XObserver.h"
#include "Tests/Support/Xorg/PrivateXorg.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using testsupport::XObserver;
using testsupport::XRawEvent;

} // namespace

TEST(XorgPointerTapTest, AScrollIsNoMove)
{
    testsupport::PrivateRuntime runtime;
    testsupport::PrivateXorg server(runtime);
    ASSERT_TRUE(server.isOpen());
    const testsupport::ScopedDisplay scope(server.display());
    const auto poster = testsupport::posterOn(server.display());
    ObservedEvents events;
    const auto tap = makeNativeInputListener()->makeTap(allPointerKinds, events.handler());
    ASSERT_TRUE(poster && tap);
    tap->setEnabled(true);
    XObserver observer(server.display());
    const auto before = observer.pointer();

    server.mouse().turnWheelBy(120);
    ASSERT_TRUE(poster->post(ScrollPixels{1})); // names all axes, with nothing in the first two
    ASSERT_TRUE(eventually([&] { return observer.events(XRawEvent::Kind::motion).size() >= 2; }));
    server.mouse().moveBy(5, 7);
    ASSERT_TRUE(eventually([&] { return events.size() > 0; }));
    const auto after = observer.pointer();
    EXPECT_NE(after, before);
    ASSERT_THAT(events.kinds(), ElementsAre(ObservedKind::mouseMoved));
    EXPECT_EQ(QPointF(events.all().front().location.x, events.all().front().location.y).toPoint(), after);
}

} // namespace platform
