// Animations from folders of PNG files, and back.

#include "AnimText.h"
#include "Commands.h"
#include "Files.h"
#include "Picture.h"

#include "graphics/Compression.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace tool {

namespace {

constexpr const char * kText = "animation.txt";

struct Arguments {
    std::string from, to;
    std::string compression = "lzo";
    bool trims = false, dithered = false;
    std::vector<int> at;
};

std::vector<std::string> picturesOf(const std::string & folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry & each : fs::directory_iterator(folder))
        if (each.path().extension() == ".png") names.push_back(each.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Cuts off what is wholly transparent round a picture; its place moves with it.
void trim(Picture & picture) {
    int left = picture.width, top = picture.height, right = 0, bottom = 0;
    for (int y = 0; y < picture.height; y++)
        for (int x = 0; x < picture.width; x++) {
            if (picture.pixel(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                              static_cast<std::size_t>(x))[3] == 0)
                continue;
            left = std::min(left, x);
            top = std::min(top, y);
            right = std::max(right, x + 1);
            bottom = std::max(bottom, y + 1);
        }
    if (left >= right) left = top = 0, right = bottom = 1; // all of it: a point stays
    Picture cut;
    cut.width = right - left;
    cut.height = bottom - top;
    cut.x = picture.x + left;
    cut.y = picture.y + top;
    for (int y = top; y < bottom; y++) {
        const std::uint8_t * row =
            picture.pixel(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(left));
        cut.rgba.insert(cut.rgba.end(), row, row + static_cast<std::ptrdiff_t>(cut.width) * 4);
    }
    picture = std::move(cut);
}

int codeOf(const std::string & compression, const std::string & where) {
    auto found = compressions().find(compression);
    if (found == compressions().end()) throw Failure(where + ": no such compression: " + compression);
    return found->second;
}

void make(const Arguments & arguments) {
    std::string folder = arguments.from + "/", text;
    std::vector<std::string> pictures = picturesOf(arguments.from);
    bool hasText = fs::exists(folder + kText);
    if (hasText) text = readText(folder + kText);
    if (!hasText && pictures.empty())
        throw Failure(arguments.from + ": holds neither PNG files nor an " + kText);
    AnimText anim = parseAnimText(folder + kText, text, pictures);
    std::vector<Planes> planes(anim.frames.size());
    ann::File & file = anim.file;
    for (std::size_t i = 0; i < anim.frames.size(); i++) {
        const FrameLine & line = anim.frames[i];
        ann::Frame frame;
        if (!line.isEmpty) {
            std::string name = folder + line.file;
            Picture picture = decode(name, readBytes(name), Format::png);
            picture.x = line.x;
            picture.y = line.y;
            if (!arguments.at.empty()) {
                picture.x += arguments.at[0];
                picture.y += arguments.at[1];
            }
            if (arguments.trims) trim(picture);
            if (picture.width > INT16_MAX || picture.height > INT16_MAX ||
                picture.x != static_cast<std::int16_t>(picture.x) ||
                picture.y != static_cast<std::int16_t>(picture.y))
                throw Failure(name +
                              ": an animation's frames have 32,767 pixels a side at most, and lie as near");
            ImgForm form;
            form.depth = file.depth;
            form.compression =
                codeOf(line.compression.empty() ? arguments.compression : line.compression, name);
            if (arguments.dithered) dither(picture, file.depth);
            planes[i] = planesOf(picture, form, line.keepsAlpha);
            frame.width = picture.width;
            frame.height = picture.height;
            frame.x = picture.x;
            frame.y = picture.y;
            frame.compression = form.compression;
        }
        frame.colour = planes[i].colour;
        frame.alpha = planes[i].alpha;
        file.frames.push_back(frame);
    }
    if (file.frames.size() > INT16_MAX || file.events.size() > INT16_MAX)
        throw Failure(arguments.to + ": an animation has 32,767 frames and events at most");
    write(arguments.to, ann::write(file));
    std::printf("%zu frames, %zu events\n", file.frames.size(), file.events.size());
}

void takeApart(const Arguments & arguments) {
    std::string bytes = readBytes(arguments.from);
    AnimText anim;
    if (const char * bad = ann::read(bytes, anim.file)) throw Failure(arguments.from + ": " + bad);
    anim.file.flags &= ~kAnimoNewLayout; // the reader's own mark
    std::error_code error;
    fs::create_directories(arguments.to, error);
    if (error || !fs::is_directory(arguments.to)) throw Failure(arguments.to + ": can't be made");
    for (std::size_t i = 0; i < anim.file.frames.size(); i++) {
        const ann::Frame & frame = anim.file.frames[i];
        char name[32];
        std::snprintf(name, sizeof name, "frame_%04zu.png", i);
        FrameLine line{name, frame.x, frame.y};
        line.isEmpty = frame.width == 0 || frame.height == 0;
        if (!line.isEmpty) {
            Picture picture = decodeFrame(arguments.from, frame, anim.file.depth);
            line.keepsAlpha = !frame.alpha.empty() && picture.opaque();
            for (const auto & [word, code] : compressions())
                if (code == frame.compression && code != kCompressionJpeg) line.compression = word;
            write(arguments.to + "/" + name, encodePng(picture));
        }
        anim.frames.push_back(line);
    }
    for (const _annEventInfo3 & event : anim.file.events)
        for (std::uint16_t frame : event.frames)
            if (frame >= anim.frames.size())
                throw Failure(arguments.from + ": the event " + shown(event.name.view()) + " shows frame " +
                              std::to_string(frame) + ", which isn't there");
    write(arguments.to + "/" + kText, writeAnimText(anim));
    std::printf("%zu frames, %zu events\n", anim.frames.size(), anim.file.events.size());
}

void convert(const Arguments & arguments) {
    if (fs::is_directory(arguments.from))
        make(arguments);
    else
        takeApart(arguments);
}

} // namespace

void addAnim(CLI::App & program) {
    CLI::App * command = program.add_subcommand(
        "anim", "Makes an animation (.ann) of a folder of PNG files, or such a folder of an animation.");
    command->footer("Without a text, NAME_1.png, NAME_2.png, ... are the frames of the event NAME. A file\n"
                    "animation.txt in the folder says more:\n\n"
                    "  event WALK fps 12 loop          played for ever\n"
                    "  entry 0 sound step.wav          the first frame of WALK is heard\n"
                    "  event JUMP loop 2 5 3           entries 2 to 5 three times\n"
                    "  show up.png at 0 -8             or its frames one by one, moved by 0 and -8\n\n"
                    "Taking a file of yours apart shows the rest.");
    auto arguments = std::make_shared<Arguments>();
    command->add_option("FROM", arguments->from, "folder of PNG files, or animation")->required();
    command->add_option("TO", arguments->to, "new animation, or folder")->required();
    command->add_option("--compression", arguments->compression, "of frames that tell none (default: lzo)")
        ->check(CLI::IsMember(compressions()));
    command->add_option("--at", arguments->at, "place of all frames on the screen")->expected(2);
    command->add_flag("--trim", arguments->trims, "cut off the transparent borders of the frames");
    command->add_flag("--dither", arguments->dithered, "soft shades don't end in bands at that depth");
    command->callback([arguments] { convert(*arguments); });
}

} // namespace tool
