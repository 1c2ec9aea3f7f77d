// Draws on images and PDF pages through the Qt surfaces and checks the pixels and the files.
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "render/image_surface.h"
#include "render/pdf_print_job.h"

using marlview::ImageSurface;
using marlview::PdfPrintJob;

namespace {

bool IsWhite(const QImage& image, int x, int y) { return image.pixel(x, y) == qRgb(255, 255, 255); }

// Non-white pixels inside and outside a device rectangle.
std::pair<int, int> InkInAndOut(const QImage& image, const QRect& rect) {
  int in = 0, out = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (!IsWhite(image, x, y)) ++(rect.contains(x, y) ? in : out);
    }
  }
  return {in, out};
}

}  // namespace

class RenderTest : public QObject {
  Q_OBJECT

 private slots:
  void LinesAndBoxesLandWhereTheScalePutsThem() {
    ImageSurface surface(200, 100);
    surface.SetScale(0, 0, 20, 10);
    surface.Cls();
    surface.Line(0, 5, 20, 5, marlview::kRed);
    surface.Box(2, 2, 6, 4, marlview::kBlue, true);
    const QImage& image = surface.Image();
    QCOMPARE(image.pixel(100, 50), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(40, 30), qRgb(0, 0, 255));
    QVERIFY(IsWhite(image, 0, 0) && IsWhite(image, 199, 99) && IsWhite(image, 70, 30) && IsWhite(image, 40, 45));
    QCOMPARE(surface.PixelWidth(), 0.1);
    QCOMPARE(surface.PixelHeight(), 0.1);
  }

  void FlippedScaleHasTheTopEdgeAtTheTop() {
    ImageSurface surface(200, 100);
    surface.SetScale(0, 10, 20, 0);
    surface.Box(0, 8, 2, 10, marlview::kBlue, true);
    QCOMPARE(surface.Image().pixel(5, 5), qRgb(0, 0, 255));
    QVERIFY(IsWhite(surface.Image(), 5, 95));
    QCOMPARE(surface.PixelHeight(), -0.1);
    // Lines of text still run down the page, towards smaller y.
    QVERIFY(surface.TextHeight("Qc") < 0);
  }

  void PrintDrawsBelowAndRightOfThePositionThenMovesToTheNextLine() {
    ImageSurface surface(200, 100);
    surface.SetScale(5, 0, 25, 10);
    surface.SetFont("Arial", 14, true, false);
    surface.SetCurrentXY(8, 2);
    const double width = surface.TextWidth("Marl"), height = surface.TextHeight("Marl");
    QVERIFY(width > 1 && height > 1);
    surface.Print("Marl");
    QCOMPARE(surface.CurrentX(), 5.0);
    QCOMPARE(surface.CurrentY(), 2 + height);
    const QRect box(30 - 1, 20 - 1, static_cast<int>(width * 10) + 3, static_cast<int>(height * 10) + 3);
    const auto [in, out] = InkInAndOut(surface.Image(), box);
    QVERIFY(in > 20);
    QCOMPARE(out, 0);
  }

  void FontsKeepTheirPhysicalSizeOnPaper() {
    ImageSurface screen(400, 400);
    const int dpi = screen.Image().logicalDpiY();
    screen.SetScale(0, 0, 400.0 / screen.Image().logicalDpiX(), 400.0 / dpi);
    QTemporaryDir dir;
    PdfPrintJob job(dir.filePath("size.pdf").toStdString(), marlview::PaperSize::kA4);
    marlview::DrawingSurface& page = job.NewPage();
    page.SetScale(0, 0, job.PageWidthPoints() / 72, job.PageHeightPoints() / 72);
    for (const char* font : {"Arial", "courier new", "MS Sans Serif"}) {
      screen.SetFont(font, 12, false, false);
      page.SetFont(font, 12, false, false);
      const double inches = page.TextHeight("Depth");
      QVERIFY2(inches > 0.12 && inches < 0.25, font);
      QVERIFY2(std::abs(screen.TextHeight("Depth") / inches - 1) < 0.1, font);
    }
    // The monospaced face is wider than the proportional one for narrow letters.
    page.SetFont("courier new", 12, false, false);
    const double mono = page.TextWidth("iiii");
    page.SetFont("Arial", 12, false, false);
    QVERIFY(mono > 1.5 * page.TextWidth("iiii"));
    QVERIFY(page.IsPrinter() && !screen.IsPrinter());
  }

  void PdfHasOnePageObjectPerPageAndItsPaperSize() {
    QTemporaryDir dir;
    const QString path = dir.filePath("two.pdf");
    PdfPrintJob job(path.toStdString(), marlview::PaperSize::kLetter);
    QCOMPARE(job.PageWidthPoints(), 612.0);
    QCOMPARE(job.PageHeightPoints(), 792.0);
    job.NewPage().Line(0, 0, 1, 1, marlview::kBlack);
    marlview::DrawingSurface& second = job.NewPage();
    QCOMPARE(second.CurrentY(), 0.0);
    second.Print("Page 2");
    QVERIFY(job.EndDoc());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF"));
    QCOMPARE(bytes.count("/Type /Page") - bytes.count("/Type /Pages"), 2);

    PdfPrintJob a4(dir.filePath("a4.pdf").toStdString(), marlview::PaperSize::kA4);
    QCOMPARE(qRound(a4.PageWidthPoints()), 595);
    PdfPrintJob nowhere(dir.filePath("no/such/folder/x.pdf").toStdString(), marlview::PaperSize::kA4);
    nowhere.NewPage().Print("lost");
    QVERIFY(!nowhere.EndDoc());
  }

  void PicturesAreScaledIntoTheirRectangleAndMissingOnesDrawNothing() {
    QTemporaryDir dir;
    QImage logo(4, 4, QImage::Format_RGB32);
    logo.fill(Qt::red);
    const QString path = dir.filePath("logo.png");
    QVERIFY(logo.save(path));
    ImageSurface surface(200, 100);
    surface.SetScale(0, 0, 20, 10);
    surface.PaintPicture({dir.filePath("missing.jpg").toStdString()}, 0, 0, 20, 10);
    QCOMPARE(InkInAndOut(surface.Image(), QRect()).second, 0);
    surface.PaintPicture({path.toStdString()}, 10, 5, 5, 2);
    QCOMPARE(InkInAndOut(surface.Image(), QRect(100, 50, 50, 20)), std::make_pair(50 * 20, 0));
  }
};

QTEST_MAIN(RenderTest)
#include "render_test.moc"
