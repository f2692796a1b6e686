import Foundation
import Units

// Made-up weather for previews and tests.
struct PreviewSource: ForecastSource {
    func nextDay() async throws -> [Forecast] {
        (0..<24).map { hour in
            Forecast(
                hour: Date(timeIntervalSince1970: Double(hour) * 3600),
                temperature: Temperature(celsius: 12 + 6 * sin(Double(hour) / 24 * .pi)),
                wind: Speed(metresPerSecond: 3),
                rain: hour % 7 == 0 ? 1.5 : 0
            )
        }
    }
}
