#include "common/base/handles.h"

#include <gtest/gtest.h>

namespace {

TEST(HandlesTest, AReferenceEndsWithItsHandles)
{
    GObject *object = static_cast<GObject *>(g_object_new(G_TYPE_OBJECT, nullptr));
    GObject *watched = object;
    g_object_add_weak_pointer(object, reinterpret_cast<gpointer *>(&watched));
    {
        z_ref<GObject> taken = z_take(object);
        const z_ref<GObject> shared = z_share(object);
        z_ref<GObject> copied = taken;
        taken = nullptr;
        copied = std::move(taken);
        EXPECT_FALSE(copied);
        EXPECT_NE(watched, nullptr);
    }
    EXPECT_EQ(watched, nullptr);
}

TEST(HandlesTest, SinkingAdoptsTheFloatingReference)
{
    const z_ref<GObject> object =
        z_sink(static_cast<GObject *>(g_object_new(G_TYPE_INITIALLY_UNOWNED, nullptr)));
    EXPECT_FALSE(g_object_is_floating(object.get()));
    EXPECT_EQ(object.get()->ref_count, 1u);
}

TEST(HandlesTest, AnOutArgumentReplacesWhatTheHandleHeld)
{
    z_utf8_ptr text(g_strdup("old"));
    const auto fill = [](char **out) { *out = g_strdup("new"); };
    fill(z_out(text));
    EXPECT_STREQ(text.get(), "new");
}

TEST(HandlesTest, ASourceIsRemovedWithItsHandle)
{
    int called_count = 0;
    const auto count = +[](gpointer data) -> gboolean {
        ++*static_cast<int *>(data);
        return G_SOURCE_CONTINUE;
    };
    z_source source(g_idle_add(count, &called_count));
    g_main_context_iteration(nullptr, FALSE);
    EXPECT_EQ(called_count, 1);
    source.reset();
    EXPECT_FALSE(g_main_context_iteration(nullptr, FALSE));
    EXPECT_EQ(called_count, 1);
}

} // namespace
