// A measurement as it runs: a timer appends a point, and by the host's next frame line, label and picture
// follow, with no other call.
//
//     live_fit OUTPUT_DIRECTORY

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/host/timer.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>

#include <array>
#include <iostream>
#include <string>

using namespace kx;

namespace {

/// Colorimetric determination of formaldehyde (C. A. Bennett and N. L. Franklin, Statistical Analysis in
/// Chemistry and the Chemical Industry, 1954): amount of carbohydrate in ml, optical density.
constexpr std::array<TKxRealPos, 6> CReadings{
    {{0.1, 0.086}, {0.3, 0.269}, {0.5, 0.446}, {0.6, 0.538}, {0.7, 0.626}, {0.9, 0.782}}};

/// The form with everything that shows a calibration while it is measured.
struct TCalibration {
    TForm Form{&TApplication::Instance()};
    TKx2DGraph Graph{&Form};
    TKxAxis XAxis{&Form}, YAxis{&Form};
    TKxLiveVector Amount{&Form}, Density{&Form};
    TKxDataSeries Series{&Form};
    TKxLinearRegressionLine Line{&Form};
    TKxResultLabel Slope{&Form};
    TTimer Instrument{&Form};
    std::size_t Taken = 0;

    TCalibration() {
        Graph.SetParent(&Form);
        Graph.SetColor(clWhite);
        Graph.SetDataColor(clWhite);
        Graph.SetMargin(10);
        Graph.SetBounds(0, 0, 600, 400);
        Form.SetBounds(0, 0, 600, 400);
        const auto place = [this](TKxAxis& Axis, const char* Caption) {
            Axis.SetParent(&Graph);
            Axis.SetCaption(Caption);
            Axis.SetShowCaption(true);
            Axis.SetBorderCaptionGap(6);
        };
        place(XAxis, "carbohydrate / ml");
        place(YAxis, "optical density");
        Graph.SetPrimaryXAxis(&XAxis);
        Graph.SetPrimaryYAxis(&YAxis);

        Series.SetXAxis(&XAxis);
        Series.SetYAxis(&YAxis);
        Series.SetXData(&Amount);
        Series.SetYData(&Density);
        Series.GetLineStyle().SetVisible(false);
        Series.GetPointStyle().SetStyle(SyCircleFilled);

        Line.SetName("Line1"); // results stand under the name
        Line.SetCaption("calibration line");
        Line.OnError = [](TComponent*, const Exception& Error) {
            std::cout << "  (" << Error.what() << ")\n";
        };
        Line.SetParentSeries(&Series);
        Slope.SetParent(&Graph);
        Slope.SetSeries(&Line);
        Slope.SetIdentifier("Slope");
        Slope.SetDigits(7);
        Slope.SetPrefix("slope ");
        Slope.SetSuffix(" per ml");
        Slope.SetBounds(90, 40, Slope.GetWidth(), Slope.GetHeight());

        Instrument.SetInterval(200);
        Instrument.OnTimer = [this] { Read(); };
    }

    void Read() {
        if (Taken > 0) std::cout << Taken << " points: " << Slope.GetCaption() << '\n';
        if (Taken == CReadings.size()) return TApplication::Instance().Terminate();
        Amount.Add(CReadings[Taken].X);
        Density.Add(CReadings[Taken].Y);
        ++Taken;
    }
};

} // namespace

int main(int Count, char** Arguments) {
    const std::string directory = Count > 1 ? Arguments[1] : ".";
    try {
        qt::Install(true);
        TCalibration calibration;
        calibration.Form.Show();
        TApplication::Instance().Run(); // frames and timer; the readings end it
        const auto paint = [&](TCanvasDevice& Device) { calibration.Graph.PaintTo(Device); };
        qt::WritePng(directory + "/live_fit.png", {.Size = {600, 400}, .Scale = 2, .Antialias = true}, paint);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "live_fit: " << error.what() << '\n';
        return 1;
    }
}
