#include "engine/FlutterViewController.hpp"

#include <gtest/gtest.h>

#include "engine/Embedding.hpp"
#include "engine/doubles/EmbeddingDouble.hpp"

namespace {

using vornix::engine::Embedding;
using vornix::engine::FlutterViewController;
using vornix::engine::doubles::EmbeddingDouble;
using vornix::platform::ScopedPort;

TEST(FlutterViewController, ThePlainInitialiserGivesANewControllerFromTheEmbedding) {
    EmbeddingDouble embedding;
    ScopedPort<Embedding> installed(&embedding);
    const std::shared_ptr<FlutterViewController> first = FlutterViewController::make();
    const std::shared_ptr<FlutterViewController> second = FlutterViewController::make();
    ASSERT_EQ(embedding.made().size(), 2u);
    EXPECT_EQ(first, embedding.made()[0]);
    EXPECT_EQ(second, embedding.made()[1]);
    EXPECT_NE(first, second);
}

TEST(FlutterViewController, EachControllerIsTheRegistryOfItsOwnEngine) {
    EmbeddingDouble embedding;
    ScopedPort<Embedding> installed(&embedding);
    FlutterViewController::make()->registrarForPlugin("First");
    FlutterViewController::make()->registrarForPlugin("Second");
    EXPECT_EQ(embedding.made()[0]->registry().requestedKeys(), std::vector<std::string>{"First"});
    EXPECT_EQ(embedding.made()[1]->registry().requestedKeys(), std::vector<std::string>{"Second"});
}

TEST(FlutterViewControllerDeathTest, WithoutAnEmbeddingThereIsNoControllerAndTheHostStops) {
    ScopedPort<Embedding> none(nullptr);
    EXPECT_DEATH(FlutterViewController::make(), "Fatal error: engine embedding is not available");
}

class EmbeddingThatMakesNone : public Embedding {
public:
    std::shared_ptr<FlutterViewController> makeViewController() override { return nullptr; }
};

TEST(FlutterViewControllerDeathTest, AnEmbeddingThatMakesNoControllerStopsTheHost) {
    EmbeddingThatMakesNone embedding;
    ScopedPort<Embedding> installed(&embedding);
    EXPECT_DEATH(FlutterViewController::make(), "Fatal error: the engine embedding made no view controller");
}

}  // namespace
