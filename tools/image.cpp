#include "Commands.h"
#include "Files.h"
#include "Picture.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

namespace tool {

namespace {

struct Arguments {
    std::string from, to;
    std::string compression = "lzo";
    ImgForm form;
    std::vector<int> at;
    bool layers = false, dithered = false;
};

void store(const std::string & name, Picture & picture, Format format, const Arguments & arguments) {
    if (!arguments.at.empty()) {
        picture.x = arguments.at[0];
        picture.y = arguments.at[1];
    }
    if (arguments.dithered) dither(picture, arguments.form.depth);
    switch (format) {
    case Format::img: return write(name, encodeImg(picture, arguments.form));
    case Format::png: return write(name, encodePng(picture));
    case Format::jpeg: return write(name, encodeJpeg(picture, arguments.form.quality));
    case Format::psd: break;
    }
    throw Failure(name + ": PSD files are read only");
}

// "a/name.png" and 2: "a/name_2.png".
std::string numbered(const std::string & name, std::size_t i) {
    std::filesystem::path path(name);
    std::string own = path.stem().string() + "_" + std::to_string(i) + path.extension().string();
    return (path.parent_path() / own).string();
}

void convert(Arguments & arguments) {
    Format to = formatOfName(arguments.to);
    std::string bytes = readBytes(arguments.from);
    Format from = formatOf(arguments.from, bytes);
    arguments.form.compression = compressions().at(arguments.compression);
    if (!arguments.layers) {
        Picture picture = decode(arguments.from, bytes, from);
        return store(arguments.to, picture, to, arguments);
    }
    if (from != Format::psd) throw Failure(arguments.from + ": only PSD files have layers");
    std::vector<Layer> layers = decodeLayers(arguments.from, bytes);
    for (std::size_t i = 0; i < layers.size(); i++) {
        std::string name = numbered(arguments.to, i + 1);
        if (layers[i].picture.rgba.empty()) {
            std::printf("layer %zu %s is empty\n", i + 1, shown(layers[i].name).c_str());
            continue;
        }
        store(name, layers[i].picture, to, arguments);
        std::printf("%s %s\n", name.c_str(), shown(layers[i].name).c_str());
    }
}

} // namespace

void addImage(CLI::App & program) {
    CLI::App * command = program.add_subcommand(
        "image", "Turns a picture (.img, .png, .jpg, .psd) into one of another format.");
    auto arguments = std::make_shared<Arguments>();
    command->add_option("FROM", arguments->from, "picture file")->required();
    command->add_option("TO", arguments->to, "new file: .img, .png or .jpg")->required();
    command->add_option("--depth", arguments->form.depth, "bits of an .img file's pixels: 15 or 16 (default)")
        ->check(CLI::IsMember({15, 16}));
    command->add_flag("--dither", arguments->dithered, "soft shades don't end in bands at that depth");
    command->add_option("--compression", arguments->compression, "of an .img file (default: lzo)")
        ->check(CLI::IsMember(compressions()));
    command->add_option("--quality", arguments->form.quality, "of JPEG, 1 to 100 (default: 90)")
        ->check(CLI::Range(1, 100));
    command->add_option("--at", arguments->at, "place on the screen that an .img file holds")->expected(2);
    command->add_flag("--layers", arguments->layers, "a file for each layer of a PSD file: TO_1, TO_2, ...");
    command->callback([arguments] { convert(*arguments); });
}

} // namespace tool
